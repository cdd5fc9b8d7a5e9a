// A curl reply to a discovery result and a persona.

#include <string>

#include "discovery/egress_discovery.h"
#include "discovery/endpoint_reply.h"
#include "discovery/persona.h"
#include "platform/text/text.h"
#include "tools/fuzz/require.h"

using namespace quillon;
using fuzz::require;

/// The first byte tells how curl ended and whether its output was cut; the rest is the reply.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return -1;
  platform::ChildRun run;
  run.exitStatus = data[0] >> 1;
  run.output.assign(reinterpret_cast<const char*>(data) + 1, size - 1);
  run.outputBytes = run.output.size() + (data[0] & 1U);
  const DiscoverResult result =
      interpretCurlRun(run, 12, {"socks5://127.0.0.1:1080", "https://geoip.quillon.example/"});
  require(result.elapsedMs == 12 && result.curlExitCode == run.exitStatus);
  require(result.errorCode.empty() == result.message.empty());
  require(!result.errorCode.empty() || isUsableAddress(result.ip));
  for (const std::string* text : {&result.ip, &result.message, &result.countryCode,
                                  &result.timezone, &result.latitude, &result.longitude}) {
    require(platform::isValidUtf8(*text));
  }
  OverlayKeys overlay;
  overlay.webrtcNoLeak = overlay.autoGeo = overlay.autoLang = overlay.autoTimezone = true;
  const ResolvedPersona persona = resolvePersona(overlay, result);
  require(persona.resolvedFakeIP == result.ip);
  require(persona.resolvedGeoLat.empty() == persona.resolvedGeoLng.empty());
  require(persona.resolvedLang.empty() == persona.resolvedAcceptLang.empty());
  return 0;
}
