#include "ui/acquisition/UserWords.h"

#include <QCoreApplication>
#include <array>
#include <string>

namespace tarnlog {

namespace {

/// For translators.
[[maybe_unused]] constexpr std::array kWords = {
    QT_TRANSLATE_NOOP("UserWords", "rec"),
    QT_TRANSLATE_NOOP("UserWords", "init"),
    QT_TRANSLATE_NOOP("UserWords", "Wait"),
    QT_TRANSLATE_NOOP("UserWords", "Start"),
    QT_TRANSLATE_NOOP("UserWords", "com"),
    QT_TRANSLATE_NOOP("UserWords", "Start recording"),
    QT_TRANSLATE_NOOP("UserWords", "Stop recording"),
    QT_TRANSLATE_NOOP("UserWords", "Event"),
    QT_TRANSLATE_NOOP("UserWords", "no record file"),
    QT_TRANSLATE_NOOP("UserWords", "Open error : "),
    QT_TRANSLATE_NOOP("UserWords", "Error : Unable to create file"),
};

}  // namespace

QString inUsersWords(std::string_view text) {
  return text.empty() ? QString() : QCoreApplication::translate("UserWords", std::string(text).c_str());
}

}  // namespace tarnlog
