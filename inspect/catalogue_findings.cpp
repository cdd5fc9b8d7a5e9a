#include <string>

#include "inspect/findings.h"
#include "overlay/webgl_catalogue.h"

namespace quillon {
namespace {

using platform::JsonObject;
using Level = Finding::Level;

constexpr const char* withoutSwitches = "the engine gets no WebGL switches";

Finding finding(const LaunchPreview& preview, Level level, const std::string& problem,
                const std::string& remedy) {
  return findingAbout(overlayKey("webgl-profile"), level, preview,
                      " has no effect: " + problem + ", so " + withoutSwitches + ". " + remedy);
}

std::string profileNames(const JsonObject& profiles) {
  constexpr std::size_t mostNames = 12;
  std::string names;
  std::size_t count = 0;
  for (const platform::JsonMember& profile : profiles.members()) {
    if (profile.key.starts_with('_')) continue;
    if (++count > mostNames) continue;
    names.append(names.empty() ? "" : ", ").append(profile.key);
  }
  if (count > mostNames) names += " and " + std::to_string(count - mostNames) + " more";
  return names.empty() ? "It has none." : "It has " + names + ".";
}

Findings unusableProfile(const LaunchPreview& preview, const std::string& file,
                         const JsonObject& profiles) {
  const std::string& name = preview.values.request.overlay.webglProfile;
  if (profiles.find<JsonObject>(name) == nullptr) {
    return {finding(preview, Level::error, file + " has no profile \"" + name + '"',
                    profileNames(profiles))};
  }
  if (!preview.facts.webglSwitches.empty()) return {};
  return {finding(preview, Level::warning, "the profile \"" + name + "\" in " + file + " is empty",
                  "Fill it or name another.")};
}

}  // namespace

Findings catalogueFindings(const LaunchPreview& preview) {
  if (preview.values.request.overlay.webglProfile.empty()) return {};
  const HostState& host = preview.host;
  if (!host.catalogueURL) {
    const std::string folder = preview.values.bundle.resources.text();
    return {finding(preview, Level::error, "there is no catalogue in " + folder,
                    "Put quillon-webgl-profiles.json there.")};
  }
  const std::string file = host.catalogueURL->text();
  const auto& catalogue = host.catalogue.object;
  const JsonObject* profiles = catalogue ? findWebglProfiles(*catalogue) : nullptr;
  if (profiles != nullptr) return unusableProfile(preview, file, *profiles);
  const auto fault = host.catalogue.problems.fault.value_or(platform::JsonFault());
  std::string problem = "the catalogue " + file;
  if (host.catalogue.state != JsonFile::State::malformed) {
    problem += catalogue ? " has no object \"profiles\"" : " cannot be read";
  } else {
    problem += " is no JSON object";
    if (fault.line != 0)
      problem +=
          " (line " + std::to_string(fault.line) + ", column " + std::to_string(fault.column) + ")";
  }
  return {finding(preview, Level::error, problem, "Correct it.")};
}

}  // namespace quillon
