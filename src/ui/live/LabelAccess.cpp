#include "ui/live/LabelAccess.h"

#include <QAccessibleWidget>

#include "ui/live/TextLabel.h"

namespace tarnlog {
namespace {

class LabelAccess : public QAccessibleWidget {
 public:
  explicit LabelAccess(TextLabel* label) : QAccessibleWidget(label, QAccessible::StaticText), label_(label) {}

  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name ? label_->spokenText() : QAccessibleWidget::text(kind);
  }

 private:
  TextLabel* label_;
};

QAccessibleInterface* makeAccess(const QString& /*className*/, QObject* object) {
  auto* const label = qobject_cast<TextLabel*>(object);
  return label != nullptr ? new LabelAccess(label) : nullptr;
}

}  // namespace

void installLabelAccess() {
  [[maybe_unused]] static const bool kInstalled = [] {
    QAccessible::installFactory(makeAccess);
    return true;
  }();
}

}  // namespace tarnlog
