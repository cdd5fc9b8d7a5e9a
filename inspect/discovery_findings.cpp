#include <array>
#include <string>
#include <utility>

#include "discovery/country_languages.h"
#include "inspect/curl_statuses.h"
#include "inspect/findings.h"

namespace quillon {
namespace {

using Level = Finding::Level;

std::string whatFailed(const DiscoverResult& result) {
  if (result.curlExitCode == 0) return "the endpoint answered without a usable address";
  return "curl ended with " + std::to_string(result.curlExitCode) + ": " +
         curlStatusText(result.curlExitCode);
}

std::string whatFollows(const LaunchPreview& preview) {
  if (preview.plan.exitStatus == ExitStatus::blocked) {
    return R"("on-proxy-fail" is "block": no engine is started, the launch ends with status 42.)";
  }
  std::string lost;
  for (const Derivation& derivation : derivations) {
    if (!isDerived(derivation, preview.values.request.overlay)) continue;
    lost.append(lost.empty() ? "" : ", ").append(derivation.key.name);
  }
  return R"("on-proxy-fail" is "fallback": the engine is started all the same, without )" + lost +
         '.';
}

/// A failure before curl ran is found by what caused it.
Findings failedDiscovery(const LaunchPreview& preview) {
  const auto& outcome = preview.outcome;
  if (!outcome || !outcome->failed() || outcome->result.curlExitCode < 0) return {};
  const bool hasProxy = !preview.values.request.overlay.proxyServer.empty();
  return {{Level::error, std::string(hasProxy ? overlayKey("proxy-server").name : ""),
           "Discovery at " + outcome->endpoint.url + " failed (" + outcome->result.errorCode +
               "): " + whatFailed(outcome->result) + ". " + whatFollows(preview)}};
}

Findings valuesNotTold(const LaunchPreview& preview) {
  const auto& outcome = preview.outcome;
  Findings findings;
  if (!outcome || outcome->failed()) return findings;
  for (const Derivation& derivation : derivations) {
    const bool isLost = isDerived(derivation, preview.values.request.overlay) &&
                        (outcome->persona.*derivation.value).empty();
    if (!isLost) continue;
    std::string text(" gives no \"");
    text.append(derivation.key.name).append("\": ").append(outcome->endpoint.host);
    text.append(" does not tell what it takes. Give \"").append(derivation.key.name);
    text.append("\" yourself.");
    findings.push_back(findingAbout(derivation.askedBy, Level::error, preview, text));
  }
  return findings;
}

Findings countryWithoutLanguages(const LaunchPreview& preview) {
  const auto& outcome = preview.outcome;
  if (!outcome || outcome->failed()) return {};
  const ResolvedPersona& persona = outcome->persona;
  const bool hasLanguage = !persona.resolvedLang.empty() || !persona.resolvedAcceptLang.empty();
  if (!hasLanguage || findCountryLang(outcome->result.countryCode) != nullptr) return {};
  return {findingAbout(overlayKey("auto-lang"), Level::warning, preview,
                       " gives the languages of the United States: the launcher has none for " +
                           outcome->result.countryCode +
                           R"(. Give "lang" and "accept-language" yourself.)")};
}

}  // namespace

Findings discoveryFindings(const LaunchPreview& preview) {
  constexpr std::array<Check, 3> checks{failedDiscovery, valuesNotTold, countryWithoutLanguages};
  return findWith(checks, preview);
}

}  // namespace quillon
