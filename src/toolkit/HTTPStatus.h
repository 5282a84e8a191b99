#pragma once

/// Status codes of HTTP (RFC 9110).
namespace toolkit::HTTPStatus {

inline constexpr int ok = 200;
inline constexpr int noContent = 204;
inline constexpr int notModified = 304;
inline constexpr int badRequest = 400;
inline constexpr int unauthorized = 401;
inline constexpr int notFound = 404;

/// Whether the client is to ask again at the address in the header "Location".
constexpr bool IsRedirect(int status) {
  return status == 301 || status == 302 || status == 303 || status == 307 || status == 308;
}

}  // namespace toolkit::HTTPStatus
