// Conversions and lookups shared by the files that make up TMainFrame.
#pragma once
#include <QMdiSubWindow>
#include <QString>
#include <string>

#include "app/qt/editor_view.h"

namespace zol::frame {

// File names and other byte strings of the engine, in the locale's encoding.
inline QString qs(const std::string& s) { return QString::fromLocal8Bit(s.c_str()); }
inline std::string local(const QString& s) { return s.toLocal8Bit().toStdString(); }

inline TVekWinEditor* viewIn(QMdiSubWindow* sub) {
    return sub ? qobject_cast<TVekWinEditor*>(sub->widget()) : nullptr;
}

}  // namespace zol::frame
