// Conversions and lookups shared by the files that make up TMainFrame.
#pragma once
#include <QMdiSubWindow>
#include <QString>
#include <string>

#include "app/qt/editor_view.h"
#include "app/qt/local_text.h"

namespace zol::frame {

using zol::local;
using zol::qs;

inline TVekWinEditor* viewIn(QMdiSubWindow* sub) {
    return sub ? qobject_cast<TVekWinEditor*>(sub->widget()) : nullptr;
}

}  // namespace zol::frame
