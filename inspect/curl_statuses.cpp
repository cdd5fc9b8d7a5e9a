#include "inspect/curl_statuses.h"

#include <algorithm>
#include <array>

namespace quillon {
namespace {

struct CurlStatus {
  std::int64_t status;
  const char* meaning;
};

constexpr std::array<CurlStatus, 19> statuses{{
    {2, "curl cannot start: look at its configuration file"},
    {3, "the URL or the proxy's is malformed: are user name and password percent-encoded?"},
    {5, "the proxy's host name cannot be resolved"},
    {6, "the endpoint's host name cannot be resolved"},
    {7, "nobody takes the connection at the proxy's address and port"},
    {22, "the endpoint answered with an error"},
    {23, "curl could not hand the answer over"},
    {26, "curl could not read its configuration file"},
    {28, "it took longer than ten seconds"},
    {35, "the endpoint's TLS handshake failed: something on the way does not let it through"},
    {47, "the endpoint sends from one address to another"},
    {52, "the endpoint answered nothing"},
    {55, "sending failed: the connection broke off"},
    {56, "receiving failed: the connection broke off"},
    {58, "the client's certificate cannot be used"},
    {60, "the endpoint's certificate is not trusted: something on the way may read along"},
    {67, "user name or password is refused"},
    {77, "the list of trusted certificates cannot be read: look at CURL_CA_BUNDLE"},
    {97, "the proxy refused: the user name or password is wrong, or it cannot reach the endpoint"},
}};

}  // namespace

std::string curlStatusText(std::int64_t exitStatus) {
  const auto* known =
      std::find_if(statuses.begin(), statuses.end(),
                   [&](const CurlStatus& candidate) { return candidate.status == exitStatus; });
  if (known != statuses.end()) return known->meaning;
  constexpr std::int64_t signalOffset = 128;
  if (exitStatus > signalOffset) {
    return "signal " + std::to_string(exitStatus - signalOffset) + " ended it";
  }
  return "see EXIT CODES in curl(1)";
}

}  // namespace quillon
