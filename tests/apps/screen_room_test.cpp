#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QMainWindow>
#include <QStyleOptionComboBox>
#include <QToolButton>
#include <QTranslator>
#include <set>

#include "apps/tarnlog/WindowTexts.h"
#include "tests/apps/ScreenTour.h"
#include "ui/common/ElidedLabel.h"

namespace tarnlog {
namespace {

constexpr QSize kWindow(1100, 750);
constexpr int kPadding = 4;  ///< pixels beside a text

bool isWide(const QWidget& widget, const QString& text, int room) {
  const QSize needed = widget.fontMetrics().size(Qt::TextShowMnemonic, text);
  return needed.width() > room;
}

bool cut(const QLabel& label) {
  if (dynamic_cast<const ElidedLabel*>(&label) != nullptr) return false;
  const QSize room = label.size() + QSize(1, 1);
  if (label.wordWrap()) return label.heightForWidth(label.width()) > room.height();
  const QSize needed = label.sizeHint();
  return needed.width() > room.width() || needed.height() > room.height() + kPadding;
}

bool cut(const QComboBox& box) {
  // Data have names of any length.
  if (box.sizeAdjustPolicy() == QComboBox::AdjustToMinimumContentsLengthWithIcon) return false;
  QStyleOptionComboBox option;
  option.initFrom(&box);
  const int room =
      box.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &box).width();
  for (int item = 0; item < box.count(); ++item)
    if (isWide(box, box.itemText(item), room)) return true;
  return false;
}

bool cut(const QHeaderView& header) {
  if (header.orientation() == Qt::Vertical) return false;
  for (int section = 0; section < header.count(); ++section)
    if (!header.isSectionHidden(section) && header.sectionSizeHint(section) > header.sectionSize(section))
      return true;
  return false;
}

bool isCut(const QWidget& widget) {
  if (const auto* const label = qobject_cast<const QLabel*>(&widget)) return cut(*label);
  if (const auto* const box = qobject_cast<const QComboBox*>(&widget)) return cut(*box);
  if (const auto* const header = qobject_cast<const QHeaderView*>(&widget)) return cut(*header);
  if (const auto* const button = qobject_cast<const QAbstractButton*>(&widget))
    return !button->text().isEmpty() && button->minimumSizeHint().width() > button->width();
  if (const auto* const group = qobject_cast<const QGroupBox*>(&widget))
    return isWide(*group, group->title(), group->width() - 2 * kPadding);
  if (const auto* const tabs = qobject_cast<const QTabBar*>(&widget))
    return tabs->sizeHint().width() > tabs->width();
  if (const auto* const line = qobject_cast<const QLineEdit*>(&widget))
    return line->text().isEmpty() && isWide(*line, line->placeholderText(), line->width() - 2 * kPadding);
  return false;
}

/// English, a third longer: for languages that nobody has written yet.
class LongerTexts : public QTranslator {
 public:
  bool isEmpty() const override { return false; }
  QString translate(const char* context, const char* source, const char*, int) const override {
    const QString text = QString::fromUtf8(source);
    return context[0] == 'Q' || text.isEmpty() ? QString() : text + QString(text.size() * 3 / 10, 'n');
  }
};

class Room {
 public:
  void look(const std::string& stop) {
    for (const QWidget* const top : QApplication::topLevelWidgets()) {
      if (!top->isVisible() || qobject_cast<const QMenu*>(top) != nullptr) continue;
      const QSize least = top->minimumSizeHint();
      if (least.width() > kWindow.width() || least.height() > kWindow.height())
        cut.insert(stop + ": the window does not fit: " + std::to_string(least.width()) + "x" +
                   std::to_string(least.height()));
      for (const QMenu* const menu : top->findChildren<QMenu*>()) lookAtKeys(*menu);
      for (const QWidget* const widget : top->findChildren<QWidget*>())
        if (widget->isVisible() && isCut(*widget)) cut.insert(stop + ": " + described(*widget));
    }
  }

  std::set<std::string> cut;
  std::set<std::string> ambiguous;  ///< keys of menus that stand for several entries

 private:
  void lookAtKeys(const QMenu& menu) {
    std::set<QKeySequence> keys;
    for (const QAction* const action : menu.actions()) {
      const QKeySequence key = QKeySequence::mnemonic(action->text());
      if (!key.isEmpty() && !keys.insert(key).second) ambiguous.insert(fromQString(action->text()));
    }
  }
  static std::string described(const QWidget& widget) {
    const QString text = widget.property("text").toString() + widget.property("title").toString();
    return fromQString(QString("%1 %2 \"%3\" in %4x%5 of %6x%7")
                           .arg(widget.metaObject()->className(), widget.objectName(), text)
                           .arg(widget.width())
                           .arg(widget.height())
                           .arg(widget.sizeHint().width())
                           .arg(widget.sizeHint().height()));
  }
};

struct ScreenRoom : testing::TestWithParam<const char*> {};

TEST_P(ScreenRoom, IsEnoughForEveryText) {
  WindowTexts texts({GetParam()}, TARNLOG_QM);
  texts.install();
  LongerTexts longer;
  if (GetParam() == std::string("longer")) QCoreApplication::installTranslator(&longer);
  Room room;
  test::ScreenTour tour([&](const std::string& stop) { room.look(stop); }, kWindow);
  tour.walk();
  EXPECT_THAT(room.cut, testing::IsEmpty());
  EXPECT_THAT(room.ambiguous, testing::IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Languages, ScreenRoom, testing::Values("en", "de", "fr", "longer"));

}  // namespace
}  // namespace tarnlog
