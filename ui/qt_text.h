#pragma once
// Conversions between the engine's texts and Qt's: captions and messages are Windows-1252,
// file names are the file system's own bytes (so any path opens, whatever its letters).
#include <QFile>
#include <QString>

#include "support/ansi_text.h"

namespace wordtally::ui {

inline QString ToQString(std::string_view ansi) {
  const std::u16string wide = AnsiToUtf16(ansi);
  return QString::fromUtf16(wide.data(), static_cast<qsizetype>(wide.size()));
}

inline AnsiString ToAnsi(const QString& text) {
  return Utf16ToAnsi(std::u16string_view(reinterpret_cast<const char16_t*>(text.utf16()),
                                         static_cast<size_t>(text.size())));
}

inline std::u16string ToU16(const QString& text) {
  return std::u16string(reinterpret_cast<const char16_t*>(text.utf16()),
                        static_cast<size_t>(text.size()));
}

// Message and output texts break lines with CR LF; Qt widgets want a plain line feed.
inline QString ToDisplayText(std::string_view ansi) { return ToQString(ansi).remove(QChar('\r')); }

inline QString PathToQString(const std::string& path) {
  return QFile::decodeName(QByteArray::fromStdString(path));
}

inline std::string PathFromQString(const QString& path) { return QFile::encodeName(path).toStdString(); }

}  // namespace wordtally::ui
