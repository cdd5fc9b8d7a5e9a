#include <array>
#include <string>
#include <utility>

#include "discovery/proxy_setting.h"
#include "engine/engine_arguments.h"
#include "inspect/findings.h"

namespace quillon {
namespace {

using Level = Finding::Level;

const OverlayKeys& overlayOf(const LaunchPreview& preview) {
  return preview.values.request.overlay;
}

Findings missingProxy(const LaunchPreview& preview) {
  if (!needsDiscovery(overlayOf(preview)) || !overlayOf(preview).proxyServer.empty()) return {};
  return {findingAbout(
      overlayKey("proxy-server"), Level::error, preview,
      " is missing or empty, and values are to be derived: discovery goes out directly, and the "
      "persona gets those of your real address. Name the proxy.")};
}

Findings otherProxyScheme(const LaunchPreview& preview) {
  const std::string& proxy = overlayOf(preview).proxyServer;
  if (!needsDiscovery(overlayOf(preview)) || proxyFault(proxy) != ProxyFault::scheme) return {};
  const std::string scheme = proxy.substr(0, proxy.find("://"));
  return {findingAbout(
      overlayKey("proxy-server"), Level::error, preview,
      " does not begin with socks5://, the only scheme that discovery takes" +
          (scheme.size() < proxy.size() ? " (not \"" + scheme + "://\")" : std::string()) +
          ": nothing can be derived, and discovery fails. Name a SOCKS5 proxy.")};
}

Findings controlCharacterInLogin(const LaunchPreview& preview) {
  const std::string& proxy = overlayOf(preview).proxyServer;
  if (!needsDiscovery(overlayOf(preview)) || proxyFault(proxy) != ProxyFault::login) return {};
  return {findingAbout(
      overlayKey("proxy-server"), Level::error, preview,
      " has a control character (%00 to %1f) in its user name or password: curl would connect "
      "without the proxy, so discovery refuses it and fails. Choose another user name or "
      "password.")};
}

Findings nulInProxy(const LaunchPreview& preview) {
  if (overlayOf(preview).proxyServer.find('\0') == std::string::npos) return {};
  return {findingAbout(overlayKey("proxy-server"), Level::error, preview,
                       " holds a NUL: curl gets only what stands before it. Take it out.")};
}

Findings nulInSwitches(const LaunchPreview& preview) {
  Findings findings;
  for (const auto& [origin, text] : preview.plan.engineArguments) {
    if (text.find('\0') == std::string::npos) continue;
    constexpr const char* problem =
        " holds a NUL: the engine gets only what stands before it. Take it out.";
    if (text == overlayOf(preview).startPage) {
      findings.push_back(findingAbout(overlayKey("start-page"), Level::warning, preview, problem));
    } else {
      std::string message("The engine's switch ");
      message.append(text, 0, text.find('=')).append(problem);
      findings.push_back({Level::warning, "", std::move(message)});
    }
  }
  return findings;
}

Findings overruledPort(const LaunchPreview& preview) {
  const std::string& port = overlayOf(preview).cdpTcpPort;
  const bool isOverruled = !debuggingSwitches(port, {}).empty() &&
                           debuggingSwitches(port, preview.values.request.originalArgs).empty();
  if (!isOverruled) return {};
  return {findingAbout(
      overlayKey("cdp-tcp-port"), Level::warning, preview,
      " has no effect: the arguments name a --remote-debugging-port of their own. Keep one of the "
      "two.")};
}

/// Two values that belong together, one of them given and the other derived.
Findings halfGiven(const LaunchPreview& preview) {
  struct Pair {
    std::size_t first;
    std::size_t second;
  };
  constexpr std::array<Pair, 2> pairs{{{1, 2}, {3, 4}}};
  Findings findings;
  for (const Pair& pair : pairs) {
    const Derivation& first = derivations.at(pair.first);
    const Derivation& second = derivations.at(pair.second);
    const bool derivesFirst = isDerived(first, overlayOf(preview));
    if (derivesFirst == isDerived(second, overlayOf(preview))) continue;
    std::string text(" derives only \"");
    text.append((derivesFirst ? first : second).key.name).append("\", since \"");
    text.append((derivesFirst ? second : first).key.name);
    text.append("\" is given: the two may contradict each other. Give both or none.");
    findings.push_back(findingAbout(first.askedBy, Level::warning, preview, text));
  }
  return findings;
}

Findings tabsThatGoAnyway(const LaunchPreview& preview) {
  const OverlayKey& key = overlayKey("close-previous-tabs");
  const auto& overlay = preview.host.overlay.object;
  const bool isTurnedOff =
      overlay && overlay->find(key.name) != nullptr && !overlayBool(key, *overlay);
  if (!isTurnedOff || overlayOf(preview).startPage.empty()) return {};
  return {findingAbout(key, Level::warning, preview,
                       " is off, but a \"start-page\" drops the previous session's tabs all the "
                       "same. Take one of the two out.")};
}

Findings nothingToClean(const LaunchPreview& preview) {
  const OverlayKeys& overlay = overlayOf(preview);
  const auto& userDataDir = preview.values.request.userDataDir;
  if (userDataDir && !userDataDir->empty()) return {};
  bool resets = false;
  for (const auto& [key, isOn] : overlay.granularStorageReset) resets = resets || isOn;
  if (!resets && (!overlay.closePreviousTabs || !overlay.startPage.empty())) return {};
  const OverlayKey& key =
      resets ? overlayKey("granular-storage-reset") : overlayKey("close-previous-tabs");
  return {findingAbout(
      key, Level::warning, preview,
      " removes nothing: no argument names the profile folder. Give --user-data-dir=FOLDER.")};
}

}  // namespace

Findings overlayEffectFindings(const LaunchPreview& preview) {
  constexpr std::array<Check, 9> checks{missingProxy, otherProxyScheme, controlCharacterInLogin,
                                        nulInProxy,   nulInSwitches,    overruledPort,
                                        halfGiven,    tabsThatGoAnyway, nothingToClean};
  return findWith(checks, preview);
}

}  // namespace quillon
