// File names and other byte strings of the engine, in the locale's encoding.
#pragma once
#include <QString>
#include <string>

namespace zol {

inline QString qs(const std::string& s) { return QString::fromLocal8Bit(s.c_str()); }
inline std::string local(const QString& s) { return s.toLocal8Bit().toStdString(); }

}  // namespace zol
