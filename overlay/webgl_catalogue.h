#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/bundle.h"
#include "platform/text/json.h"

/// The catalogue of WebGL profiles: a JSON object whose "profiles" maps names to sets of switches.
/// Whatever is wrong with it costs the switches concerned and nothing else. Any thread.
namespace quillon {

/// The two places where the catalogue may lie.
struct CataloguePlaces {
  /// First the resources of the bundle.
  platform::Bundle bundle;
  /// Then the folder part of the path that the launcher was started by; may be empty.
  std::string programPath;
};

/// A catalogue file that was read.
struct WebglCatalogue {
  platform::Path url;
  /// Nothing if the file is unreadable or contains no JSON object.
  std::optional<platform::JsonObject> object;
};

/// Reads the catalogue in the first place where a file or folder of its name exists; nothing if
/// there is none in either.
[[nodiscard]] std::optional<WebglCatalogue> readWebglCatalogue(const CataloguePlaces& places);

/// The object that maps a catalogue's profile names to profiles; null when it has none.
[[nodiscard]] const platform::JsonObject* findWebglProfiles(const platform::JsonObject& catalogue);

/// The switches of one profile of a catalogue, in the file's order. An entry gives none when its
/// name begins with "_" or its value is null or has an empty text.
[[nodiscard]] std::vector<std::string> switchesOfWebglProfile(const platform::JsonObject& catalogue,
                                                              std::string_view profileName);

/// The switches of the named profile. The file is read only if a name is given.
[[nodiscard]] std::vector<std::string> webglProfileSwitches(std::string_view profileName,
                                                            const CataloguePlaces& places);

}  // namespace quillon
