#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/files/bundle.h"
#include "platform/text/json.h"

/// The catalogue of WebGL profiles: a JSON object whose "profiles" maps names to sets of switches.
/// An error in it removes only the switches that it concerns. Any thread.
namespace quillon {

/// The two places where the launcher looks for the catalogue.
struct CataloguePlaces {
  /// First the resources of the bundle.
  platform::Bundle bundle;
  /// Then the folder of this path, by which the launcher was started; may be empty.
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

/// The object that maps a catalogue's profile names to profiles; null if it is missing.
[[nodiscard]] const platform::JsonObject* findWebglProfiles(const platform::JsonObject& catalogue);

/// The switches of one profile of a catalogue, in the order of the file. An entry is skipped if its
/// name starts with "_" or its value is null or an empty text.
[[nodiscard]] std::vector<std::string> switchesOfWebglProfile(const platform::JsonObject& catalogue,
                                                              std::string_view profileName);

/// The switches of the named profile. The file is read only if a name is given.
[[nodiscard]] std::vector<std::string> webglProfileSwitches(std::string_view profileName,
                                                            const CataloguePlaces& places);

}  // namespace quillon
