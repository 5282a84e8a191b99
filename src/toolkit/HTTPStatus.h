#pragma once

/// Status codes of HTTP (RFC 9110).
namespace toolkit::HTTPStatus {

inline constexpr int ok = 200;
inline constexpr int noContent = 204;
inline constexpr int notModified = 304;
inline constexpr int badRequest = 400;
inline constexpr int unauthorized = 401;
inline constexpr int notFound = 404;

}  // namespace toolkit::HTTPStatus
