# The hosts of the two endpoints, which each deployment sets.

set(QUILLON_PRIMARY_HOST "geoip.quillon.example" CACHE STRING
  "Host name of the geo-IP endpoint (HTTPS, /geoip?format=json)")
set(QUILLON_FALLBACK_HOST "myip.quillon.example" CACHE STRING
  "Host name of the bare-address endpoint (HTTPS, /myip)")

# Checks a host name by RFC 1123: labels of letters, digits and inner hyphens, separated by dots.
# The last label is not a number, because then the name would be an address.
function(require_host_name variable)
  set(label "[A-Za-z0-9]([A-Za-z0-9-]*[A-Za-z0-9])?")
  string(LENGTH "${${variable}}" length)
  if(NOT "${${variable}}" MATCHES "^${label}(\\.${label})*$" OR length GREATER 253
      OR "${${variable}}" MATCHES "(^|\\.)[0-9]+$")
    message(FATAL_ERROR
      "${variable} is \"${${variable}}\", which is not a host name. Give the bare name, "
      "such as geoip.example.com: no scheme, port, path or blank.")
  endif()
endfunction()

require_host_name(QUILLON_PRIMARY_HOST)
require_host_name(QUILLON_FALLBACK_HOST)

string(TOLOWER "${QUILLON_PRIMARY_HOST};${QUILLON_FALLBACK_HOST}" hosts)
if(hosts MATCHES "\\.example(;|$)")
  message(STATUS
    "Discovery will not reach anybody: the endpoint hosts are reserved names. Set "
    "QUILLON_PRIMARY_HOST and QUILLON_FALLBACK_HOST to hosts of your own.")
endif()

configure_file(cmake/deployment.h.in generated/deployment.h @ONLY)
