#pragma once

#include <QLocale>

#include "platform/text/UserLocale.h"

namespace tarnlog {

/// How the desktop's user writes numbers and dates. Hours of half days become those of whole ones.
UserLocale desktopLocale(const QLocale& locale = QLocale::system());

}  // namespace tarnlog
