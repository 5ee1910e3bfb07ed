#include "ui/param/NumberInput.h"

#include <QSignalBlocker>
#include <algorithm>

#include "ui/common/WheelGuard.h"

namespace tarnlog {

namespace {

constexpr double kStep = 1;
constexpr double kFastStep = 5;
constexpr double kLowestLevelStep = 0;
constexpr double kHighestLevelStep = 100;
constexpr double kLevelLimit = 1e15;

class SecondsBefore : public CWNumEdit {
 protected:
  std::optional<double> entered(const QString& text) const override {
    return CWNumEdit::entered(signedText(text));
  }

 private:
  /// A file may hold a time after the moment: then the sign counts as it stands.
  QString signedText(const QString& text) const {
    const bool bare = !text.isEmpty() && text.front().isDigit();
    return maximum() <= 0 && bare ? locale().negativeSign() + text : text;
  }
};

CWNumEdit* prepared(CWNumEdit* input, const char* name) {
  input->setObjectName(name);
  input->setSingleStep(kStep);
  input->setFastStep(kFastStep);
  input->setKeyboardTracking(true);
  input->setAlignment(Qt::AlignRight);
  input->setFixedWidth(input->fontMetrics().horizontalAdvance("-1000000") + 30);
  changeByWheelOnlyWithFocus(*input);
  return input;
}

}  // namespace

CWNumEdit* createSecondsInput(const char* name, double lowest, double highest) {
  CWNumEdit* const input = prepared(new CWNumEdit, name);
  input->setDecimals(0);
  input->setRange(lowest, highest);
  return input;
}

CWNumEdit* createSecondsBeforeInput(const char* name, double longest) {
  CWNumEdit* const input = prepared(new SecondsBefore, name);
  input->setDecimals(0);
  input->setRange(-longest, 0);
  return input;
}

CWNumEdit* createLevelInput(const char* name) {
  CWNumEdit* const input = prepared(new CWNumEdit, name);
  input->setRange(-kLevelLimit, kLevelLimit);
  input->setStepRange(kLowestLevelStep, kHighestLevelStep);
  return input;
}

void showNumber(CWNumEdit& input, double value) {
  const QSignalBlocker silent(input);
  input.setRange(std::min(input.minimum(), value), std::max(input.maximum(), value));
  if (input.value() != value) input.setValue(value);
}

}  // namespace tarnlog
