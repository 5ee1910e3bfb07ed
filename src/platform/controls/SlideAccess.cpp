#include "platform/controls/SlideAccess.h"

#include <QAccessibleWidget>

#include "platform/controls/CWSlide.h"

namespace tarnlog {
namespace {

/// A value that is read and cannot be set.
class SlideAccess : public QAccessibleWidget, public QAccessibleValueInterface {
 public:
  explicit SlideAccess(CWSlide* slide) : QAccessibleWidget(slide, QAccessible::ProgressBar), slide_(slide) {}

  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::ValueInterface) return static_cast<QAccessibleValueInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }
  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Value ? slide_->valueText() : QAccessibleWidget::text(kind);
  }
  QVariant currentValue() const override { return slide_->shownValue(); }
  void setCurrentValue(const QVariant& /*value*/) override {}
  QVariant maximumValue() const override { return slide_->maximum(); }
  QVariant minimumValue() const override { return slide_->minimum(); }
  QVariant minimumStepSize() const override { return 0.0; }

 private:
  CWSlide* slide_;
};

QAccessibleInterface* makeAccess(const QString& /*className*/, QObject* object) {
  auto* const slide = qobject_cast<CWSlide*>(object);
  return slide != nullptr ? new SlideAccess(slide) : nullptr;
}

}  // namespace

void installSlideAccess() {
  [[maybe_unused]] static const bool kInstalled = [] {
    QAccessible::installFactory(makeAccess);
    return true;
  }();
}

}  // namespace tarnlog
