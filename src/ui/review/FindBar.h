#pragma once

#include <QWidget>

#include "platform/text/UserLocale.h"
#include "ui/review/CurveSearch.h"
#include "ui/review/ReviewScene.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QToolButton;

namespace tarnlog {

class ElidedLabel;

/// Looks for a moment of the chosen curve and goes there; says so in words when there is none.
class FindBar : public QWidget {
  Q_OBJECT
 public:
  FindBar(ReviewScene& scene, CurveColumns& columns, const UserLocale& locale, QWidget* parent = nullptr);

  void follow(unsigned changes);
  /// Goes to the next moment, or the one before; false when there is none, and the pane says why.
  bool find(bool back);
  void enter();

 private:
  void createInputs();
  QToolButton* addButton(const char* name, const QString& text, const QString& toolTip, bool back);
  CurveSearch::What what() const;
  void showInputs();
  QString answerText(const CurveSearch::Answer& answer) const;
  QString noneText(const CurveSearch::Answer& answer, double level, bool back) const;
  QString missedText(double level, bool back) const;
  QString numberText(double number, const RecordFigures& figures) const;

  ReviewScene& scene_;
  CurveColumns& columns_;
  CurveSearch search_;
  UserLocale locale_;
  ElidedLabel* curve_;
  QComboBox* what_;
  QLineEdit* level_;
  QToolButton* back_;
  QToolButton* next_;
  QLabel* answer_;
};

}  // namespace tarnlog
