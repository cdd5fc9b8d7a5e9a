#include "overlay/key_list.h"

namespace quillon {

using enum OverlayKeyKind;

const std::array<OverlayKey, overlayKeyCount> overlayKeyList{{
    {"proxy-server", text},
    {"on-proxy-fail", policy},
    {"webrtc-no-leak", onOff},
    {"webrtc-fake-public-ip", presence},
    {"auto-geo", onOff},
    {"geo-lat", presence},
    {"geo-lng", presence},
    {"auto-lang", onOff},
    {"lang", presence},
    {"accept-language", presence},
    {"auto-timezone", onOff},
    {"timezone-override", presence},
    {"start-page", text},
    {"close-previous-tabs", onOff},
    {"granular-storage-reset", resetKeys},
    {"device-memory", presence},
    {"hardware-concurrency", presence},
    {"speech-voices", presence},
    {"webgl-profile", text},
    {"cdp-tcp-port", port},
    {"chrome-command-line", rawSwitches},
}};

}  // namespace quillon
