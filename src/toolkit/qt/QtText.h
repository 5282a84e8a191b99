#pragma once

#include <string>
#include <string_view>

#include <QString>

namespace toolkit::qt {

/// Invalid UTF-8 becomes U+FFFD.
inline QString ToQt(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

inline std::string FromQt(const QString& text) { return text.toStdString(); }

}  // namespace toolkit::qt
