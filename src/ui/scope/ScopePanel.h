#pragma once

#include <QColor>
#include <QFrame>
#include <functional>

#include "ui/scope/ScopeEditor.h"

class QCheckBox;
class QComboBox;
class QFormLayout;
class QGroupBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace tarnlog {

class CurvePreview;
class ColourBox;
class CWNumEdit;

/// `FrScope`: the editors of the current item. Each edit goes to the rules at once, and a signal tells how
/// much of the list it alters.
class ScopePanel : public QFrame {
  Q_OBJECT

 public:
  static constexpr int kMostPoints = 1'000'000;

  /// Asks the user for a colour, beginning with the given one, without waiting: `chosen` is called later, or
  /// never. An acquisition may be ending meanwhile.
  using AskColour =
      std::function<void(QWidget* parent, const QColor& initial, std::function<void(const QColor&)> chosen)>;

  /// `editor` must outlive it.
  explicit ScopePanel(ScopeEditor& editor, QWidget* parent = nullptr);
  void setAskColour(AskColour ask) { askColour_ = std::move(ask); }
  /// Shows the current item, or that there is none.
  void load();

 signals:
  void typeEdited();    ///< type or graph: other rows may show it
  void colourEdited();  ///< the item's own row shows it
  void valueEdited();   ///< no row shows it

 private:
  QWidget* makeNames();
  QWidget* makeTypeEditors();
  QGroupBox* makeAxisEditors();
  QGroupBox* makePointsEditor();
  QFrame* makeColourEditor();
  void alignLabels();
  void connectEditors();
  void loadNames();
  void loadTypes();
  void loadGraphs();
  void loadValues();
  void showParts();
  void askForColour();
  void takeColour(const QColor& colour);
  void takeDataRange();
  void showDataRange();
  void note(bool changed);

  ScopeEditor& editor_;
  AskColour askColour_;
  bool loading_ = false;  ///< the editors are being filled: what they signal is no edit

  QLabel* lbData_ = nullptr;
  QLabel* lbrequest_ = nullptr;
  QLabel* lbecu_ = nullptr;
  QComboBox* scopeType_ = nullptr;
  QFrame* frTypeGraph_ = nullptr;
  QFormLayout* captionForm_ = nullptr;
  QLineEdit* valScopeCaption_ = nullptr;
  QComboBox* cbGraphIndex_ = nullptr;
  QGroupBox* frAxeY_ = nullptr;
  QCheckBox* axeYAuto_ = nullptr;
  CWNumEdit* axeYmini_ = nullptr;
  CWNumEdit* axeYmaxi_ = nullptr;
  QPushButton* axeYRange_ = nullptr;
  QGroupBox* frAxeX_ = nullptr;
  CWNumEdit* axeXNbPoints_ = nullptr;
  QFrame* frColor_ = nullptr;
  ColourBox* valScopeColor_ = nullptr;
  CurvePreview* preview_ = nullptr;
};

}  // namespace tarnlog
