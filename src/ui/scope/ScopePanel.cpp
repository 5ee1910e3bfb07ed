#include "ui/scope/ScopePanel.h"

#include <QAbstractItemView>
#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/controls/CWNumEdit.h"
#include "ui/common/Convert.h"
#include "ui/common/ElidedLabel.h"
#include "ui/common/WheelGuard.h"
#include "ui/scope/ColourBox.h"
#include "ui/scope/CurvePreview.h"
#include "ui/scope/ScopeOffers.h"
#include "ui/scope/ScopeTexts.h"

namespace tarnlog {

namespace {

constexpr double kLargest = 1e15;
constexpr int kWidthInDigits = 36;
constexpr int kNumberInDigits = 16;
constexpr const char* kAligned = "aligned";  ///< name of the forms whose editors begin at the same place

template <class Widget>
Widget* named(Widget* widget, const char* name, const QString& accessibleName, const QString& toolTip = {}) {
  widget->setObjectName(name);
  widget->setAccessibleName(accessibleName);
  widget->setToolTip(toolTip);
  return widget;
}

CWNumEdit* numberEdit(double least, double most, int decimals) {
  auto* const edit = new CWNumEdit;
  edit->setDecimals(decimals);
  edit->setRange(least, most);
  edit->setKeyboardTracking(true);  // a configuration saved by a shortcut holds what is typed
  edit->setAlignment(Qt::AlignRight);
  edit->setFixedWidth(edit->fontMetrics().horizontalAdvance('0') * kNumberInDigits);
  return edit;
}

/// Labels at the left, editors at the right edge.
void addRow(QFormLayout* form, const QString& label, QWidget* editor) {
  auto* const line = new QHBoxLayout;
  line->addStretch();
  line->addWidget(editor);
  form->addRow(label, line);
  static_cast<QLabel*>(form->itemAt(form->rowCount() - 1, QFormLayout::LabelRole)->widget())
      ->setBuddy(editor);
}

}  // namespace

ScopePanel::ScopePanel(ScopeEditor& editor, QWidget* parent) : QFrame(parent), editor_(editor) {
  setObjectName("FrScope");
  auto* const column = new QVBoxLayout(this);
  column->addWidget(makeNames());
  scopeType_ = named(new QComboBox, "ScopeType", tr("Display type"));
  auto* const typeForm = new QFormLayout;
  typeForm->setObjectName(kAligned);
  typeForm->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  typeForm->addRow(tr("&Display:"), scopeType_);
  column->addLayout(typeForm);
  column->addWidget(makeTypeEditors());
  column->addStretch();
  for (QWidget* const input :
       std::initializer_list<QWidget*>{scopeType_, cbGraphIndex_, axeYmini_, axeYmaxi_, axeXNbPoints_})
    changeByWheelOnlyWithFocus(*input);
  alignLabels();
  const int usual = fontMetrics().horizontalAdvance('0') * kWidthInDigits;
  setFixedWidth(std::max(usual, column->minimumSize().width()));  // some languages need more
  connectEditors();
  load();
}

QWidget* ScopePanel::makeNames() {
  auto* const names = new QWidget;
  auto* const form = new QFormLayout(names);
  form->setObjectName(kAligned);
  form->setContentsMargins({});
  form->setVerticalSpacing(2);
  form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  lbData_ = named(new ElidedLabel, "LbData", tr("Data"));
  lbrequest_ = named(new ElidedLabel, "Lbrequest", tr("Request"));
  lbecu_ = named(new ElidedLabel, "Lbecu", tr("ECU"));
  QFont bold = lbData_->font();
  bold.setBold(true);
  lbData_->setFont(bold);
  form->addRow(tr("Data:"), lbData_);
  form->addRow(tr("Request:"), lbrequest_);
  form->addRow(tr("ECU:"), lbecu_);
  return names;
}

QWidget* ScopePanel::makeTypeEditors() {
  frTypeGraph_ = new QFrame;
  frTypeGraph_->setObjectName("FrTypeGraph");
  auto* const column = new QVBoxLayout(frTypeGraph_);
  column->setContentsMargins({});
  captionForm_ = new QFormLayout;
  captionForm_->setObjectName(kAligned);
  captionForm_->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
  valScopeCaption_ = named(new QLineEdit, "ValScopeCaption", tr("Caption"),
                           tr("Shown beside the value; the name of the data when empty"));
  cbGraphIndex_ =
      named(new QComboBox, "CBgraphIndex", tr("Graph"), tr("The graph that this data belongs to"));
  cbGraphIndex_->view()->setTextElideMode(Qt::ElideMiddle);
  captionForm_->addRow(tr("Cap&tion:"), valScopeCaption_);
  captionForm_->addRow(tr("&Graph:"), cbGraphIndex_);
  column->addLayout(captionForm_);
  column->addWidget(makeAxisEditors());
  column->addWidget(makePointsEditor());
  column->addWidget(makeColourEditor());
  return frTypeGraph_;
}

QGroupBox* ScopePanel::makeAxisEditors() {
  frAxeY_ = new QGroupBox(tr("Y Axis"));
  frAxeY_->setObjectName("FrAxeY");
  auto* const form = new QFormLayout(frAxeY_);
  axeYAuto_ = named(new QCheckBox(tr("A&utomatic range")), "AxeYAuto", tr("Automatic range"),
                    tr("The axis follows the values"));
  axeYmini_ = named(numberEdit(-kLargest, kLargest, 12), "AxeYmini", tr("Minimum of the axis"));
  axeYmaxi_ = named(numberEdit(-kLargest, kLargest, 12), "AxeYmaxi", tr("Maximum of the axis"));
  form->addRow(axeYAuto_);
  addRow(form, tr("Mi&nimum:"), axeYmini_);
  addRow(form, tr("Ma&ximum:"), axeYmaxi_);
  axeYRange_ = new QPushButton(tr("&Range of the datum"));
  axeYRange_->setObjectName("AxeYRange");
  auto* const line = new QHBoxLayout;
  line->addStretch();
  line->addWidget(axeYRange_);
  form->addRow(line);
  return frAxeY_;
}

QGroupBox* ScopePanel::makePointsEditor() {
  frAxeX_ = new QGroupBox(tr("X Axis"));
  frAxeX_->setObjectName("FrAxeX");
  auto* const form = new QFormLayout(frAxeX_);
  axeXNbPoints_ = named(numberEdit(1, kMostPoints, 0), "AxeXNbPoints", tr("Number of points"),
                        tr("How many values the graph shows across its width"));
  axeXNbPoints_->setSingleStep(10);
  axeXNbPoints_->setFastStep(100);
  addRow(form, tr("Number of &points:"), axeXNbPoints_);
  return frAxeX_;
}

QFrame* ScopePanel::makeColourEditor() {
  frColor_ = new QFrame;
  frColor_->setObjectName("FrColor");
  auto* const form = new QFormLayout(frColor_);
  form->setObjectName(kAligned);
  form->setContentsMargins({});
  valScopeColor_ = named(new ColourBox, "ValScopeColor", tr("Color"), tr("Choose another color"));
  preview_ = named(new CurvePreview, "ColorPreview", tr("Preview of the color"),
                   tr("How the color stands out from the background of graphs"));
  auto* const line = new QHBoxLayout;
  line->addWidget(valScopeColor_);
  line->addWidget(preview_, 1);
  form->addRow(tr("C&olor:"), line);
  static_cast<QLabel*>(form->labelForField(line))->setBuddy(valScopeColor_);
  return frColor_;
}

/// The forms are apart, because types hide some of them, and look like one.
void ScopePanel::alignLabels() {
  std::vector<QWidget*> labels;
  for (const QFormLayout* const form : findChildren<QFormLayout*>(kAligned))
    for (int row = 0; row < form->rowCount(); ++row)
      labels.push_back(form->itemAt(row, QFormLayout::LabelRole)->widget());
  int widest = 0;
  for (const QWidget* const label : labels) widest = std::max(widest, label->sizeHint().width());
  for (QWidget* const label : labels) label->setMinimumWidth(widest);
}

void ScopePanel::connectEditors() {
  connect(scopeType_, &QComboBox::currentIndexChanged, this, [this](int index) {
    if (loading_ || index < 0) return;
    if (editor_.chooseType(static_cast<DisplayKind>(scopeType_->itemData(index).toInt()))) {
      emit typeEdited();
    } else {
      load();
    }
  });
  connect(cbGraphIndex_, &QComboBox::currentIndexChanged, this, [this](int index) {
    if (!loading_ && index >= 0 && editor_.chooseGraph(static_cast<std::size_t>(index))) emit typeEdited();
  });
  connect(valScopeCaption_, &QLineEdit::textChanged, this,
          [this](const QString& text) { note(!loading_ && editor_.changeCaption(fromQString(text))); });
  connect(axeYAuto_, &QCheckBox::toggled, this, [this](bool on) {
    note(!loading_ && editor_.changeAutomatic(on));
    showParts();
  });
  connect(axeYmini_, &CWNumEdit::valueChanged, this,
          [this](double value) { note(!loading_ && editor_.changeMini(value)); });
  connect(axeYmaxi_, &CWNumEdit::valueChanged, this,
          [this](double value) { note(!loading_ && editor_.changeMaxi(value)); });
  connect(axeYRange_, &QPushButton::clicked, this, &ScopePanel::takeDataRange);
  connect(axeXNbPoints_, &CWNumEdit::valueChanged, this, [this](double value) {
    note(!loading_ && editor_.changePoints(static_cast<std::int32_t>(value)));
  });
  connect(valScopeColor_, &ColourBox::clicked, this, &ScopePanel::askForColour);
}

void ScopePanel::note(bool changed) {
  if (changed) emit valueEdited();
}

void ScopePanel::askForColour() {
  if (!askColour_) return;
  askColour_(this, valScopeColor_->colour(), [this, asked = editor_.current()](const QColor& colour) {
    if (asked == editor_.current()) takeColour(colour);
  });
}

void ScopePanel::takeColour(const QColor& colour) {
  if (!editor_.changeColour(static_cast<std::int32_t>(fromQColor(colour)))) return;
  loadValues();
  emit colourEdited();
}

void ScopePanel::takeDataRange() {
  const bool changed = editor_.takeDataRange();
  loadValues();
  note(changed);
}

/// The button says what it would give, or why it gives nothing.
void ScopePanel::showDataRange() {
  const auto range = editor_.dataRange();
  axeYRange_->setEnabled(range && editor_.rangeEnabled());
  QString tip = tr("The vehicle does not tell the range of this data");
  if (range && !editor_.rangeEnabled()) tip = tr("Switch the automatic range off first");
  if (range && editor_.rangeEnabled())
    tip =
        tr("From %1 to %2").arg(axeYmini_->textFromValue(range->mini), axeYmini_->textFromValue(range->maxi));
  axeYRange_->setToolTip(tip);
  axeYRange_->setAccessibleDescription(tip);
}

void ScopePanel::load() {
  const QScopedValueRollback loading(loading_, true);
  setEnabled(editor_.current() != nullptr);
  loadNames();
  loadTypes();
  loadGraphs();
  loadValues();
  showParts();
}

void ScopePanel::loadNames() {
  const oTarnScope* const scope = editor_.current();
  lbData_->setText(scope == nullptr ? QString() : toQString(scope->DataName));
  lbrequest_->setText(scope == nullptr ? QString() : toQString(scope->RequestName));
  lbecu_->setText(scope == nullptr ? QString() : toQString(scope->EcuName));
}

void ScopePanel::loadTypes() {
  const oTarnScope* const scope = editor_.current();
  TypeOffer offer{{oTarnScope::kNone}, true, true};
  if (scope != nullptr) offer = offeredTypes(*editor_.Parameters(), *scope);
  const DisplayKind type = scope == nullptr ? oTarnScope::kNone : scope->ScopeType();
  scopeType_->clear();
  for (const DisplayKind each : offer.types) {
    scopeType_->addItem(typeName(each), static_cast<int>(each));
    scopeType_->setItemData(scopeType_->count() - 1, typeHint(each), Qt::ToolTipRole);
  }
  scopeType_->setCurrentIndex(scopeType_->findData(static_cast<int>(type)));
  scopeType_->setPlaceholderText(typeName(type));  // a type that a file gave and that is not on offer
  const QString why = whyNotOffered(offer);
  scopeType_->setToolTip(why.isEmpty() ? typeHint(type) : why);
  scopeType_->setAccessibleDescription(why);
}

void ScopePanel::loadGraphs() {
  cbGraphIndex_->clear();
  for (const oTarnScope* const graph : editor_.graphs()) {
    cbGraphIndex_->addItem(toQString(graph->DataName));
    const QString where = tr("%1 [%2]").arg(toQString(graph->DataName), toQString(graph->RequestName));
    cbGraphIndex_->setItemData(cbGraphIndex_->count() - 1, where, Qt::ToolTipRole);
  }
  const std::optional<std::size_t> chosen = editor_.chosenGraph();
  cbGraphIndex_->setCurrentIndex(chosen ? static_cast<int>(*chosen) : -1);
}

void ScopePanel::loadValues() {
  const QScopedValueRollback loading(loading_, true);
  const EditorValues& values = editor_.values();
  const QColor colour = toQColor(static_cast<Colour>(values.colour), palette());
  if (fromQString(valScopeCaption_->text()) != values.caption)
    valScopeCaption_->setText(toQString(values.caption));
  axeYAuto_->setChecked(values.automatic);
  axeYmini_->setValue(values.mini);
  axeYmaxi_->setValue(values.maxi);
  axeXNbPoints_->setValue(values.points);
  valScopeColor_->setColour(colour);
  preview_->setColour(colour);
}

void ScopePanel::showParts() {
  const EditorParts parts = editor_.parts();
  frTypeGraph_->setVisible(parts.settings);
  captionForm_->setRowVisible(cbGraphIndex_, parts.graphs);
  frAxeY_->setVisible(parts.axis);
  frAxeY_->setEnabled(parts.axis);
  frAxeY_->setTitle(parts.axisIsX ? tr("X Axis") : tr("Y Axis"));
  axeYAuto_->setVisible(parts.automatic);
  axeYmini_->setEnabled(editor_.rangeEnabled());
  axeYmaxi_->setEnabled(editor_.rangeEnabled());
  showDataRange();
  frAxeX_->setVisible(parts.points);
  frAxeX_->setEnabled(parts.points);
  frColor_->setVisible(parts.colour);
}

}  // namespace tarnlog
