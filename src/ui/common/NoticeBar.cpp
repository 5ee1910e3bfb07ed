#include "ui/common/NoticeBar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/common/Icons.h"

namespace tarnlog {

namespace {

constexpr int kMostLines = 6;

}  // namespace

/// One message: the sign where it warns, text, what can be done, the way to its details, and a cross.
class NoticeBar::Notice : public QWidget {
 public:
  Notice(bool warns, const QString& text, const QStringList& details, const Action& action, QWidget* parent)
      : QWidget(parent), warns_(warns), text_(text), details_(details) {
    auto* const column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    auto* const row = new QHBoxLayout;
    row->setContentsMargins(8, 2, 4, 2);
    if (warns) row->addWidget(sign());
    row->addWidget(label(), 1);
    if (!action.text.isEmpty()) row->addWidget(actionButton(action));
    if (details.size() > 1) row->addWidget(detailsButton());
    closer_ = new QToolButton(this);
    closer_->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    closer_->setAutoRaise(true);
    closer_->setToolTip(NoticeBar::tr("Close this message"));
    closer_->setAccessibleName(closer_->toolTip());
    row->addWidget(closer_);
    column->addLayout(row);
    if (details.size() > 1) column->addWidget(list());
  }

  bool warns() const { return warns_; }
  const QString& text() const { return text_; }
  const QStringList& details() const { return details_; }
  QToolButton* closer() const { return closer_; }

 private:
  QLabel* sign() {
    auto* const label = new QLabel(this);
    const int size = style()->pixelMetric(QStyle::PM_SmallIconSize);
    label->setPixmap(tarnIcon("warning").pixmap(QSize(size, size), devicePixelRatioF()));
    return label;
  }

  QLabel* label() {
    auto* const label = new QLabel(text_, this);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    label->setFocusPolicy(Qt::StrongFocus);
    return label;
  }

  QPushButton* actionButton(const Action& action) {
    auto* const button = new QPushButton(action.text, this);
    button->setObjectName("action");
    connect(button, &QPushButton::clicked, this, action.run);
    return button;
  }

  QToolButton* detailsButton() {
    auto* const button = new QToolButton(this);
    button->setText(NoticeBar::tr("Details"));
    button->setToolTip(NoticeBar::tr("Show all"));
    button->setCheckable(true);
    button->setAutoRaise(true);
    connect(button, &QToolButton::toggled, this, [this](bool open) { list_->setVisible(open); });
    return button;
  }

  QPlainTextEdit* list() {
    list_ = new QPlainTextEdit(details_.join('\n'), this);
    list_->setAccessibleName(NoticeBar::tr("Details"));
    list_->setReadOnly(true);
    list_->setTabChangesFocus(true);
    list_->setLineWrapMode(QPlainTextEdit::NoWrap);
    const int lines = std::min(kMostLines, static_cast<int>(details_.size()));
    const auto margin = static_cast<int>(list_->document()->documentMargin());
    list_->setFixedHeight(lines * list_->fontMetrics().lineSpacing() + margin + 2 * list_->frameWidth());
    list_->hide();
    return list_;
  }

  bool warns_;
  QString text_;
  QStringList details_;
  QToolButton* closer_ = nullptr;
  QPlainTextEdit* list_ = nullptr;
};

NoticeBar::NoticeBar(QWidget* parent) : QFrame(parent), rows_(new QVBoxLayout(this)) {
  rows_->setContentsMargins(0, 0, 0, 0);
  rows_->setSpacing(0);
  setFrameShape(QFrame::StyledPanel);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::AlternateBase);
  setAccessibleName(tr("Messages"));
  hide();
}

void NoticeBar::showNotice(const QString& subject, const QString& text, const QStringList& details,
                           const Action& action) {
  add(subject, new Notice(true, text, details, action, this));
}

void NoticeBar::showNews(const QString& subject, const QString& text, const Action& action) {
  add(subject, new Notice(false, text, {}, action, this));
}

void NoticeBar::add(const QString& subject, Notice* notice) {
  removeNotice(subject);
  notices_.insert(subject, notice);
  rows_->addWidget(notice);
  connect(notice->closer(), &QToolButton::clicked, this, [this, subject] { removeNotice(subject); });
  show();
}

void NoticeBar::removeNotice(const QString& subject) {
  if (Notice* const notice = notices_.take(subject)) {
    rows_->removeWidget(notice);
    notice->hide();
    notice->deleteLater();
  }
  setVisible(!notices_.isEmpty());
}

QString NoticeBar::notice(const QString& subject) const {
  const Notice* const notice = notices_.value(subject);
  return notice == nullptr ? QString() : notice->text();
}

QStringList NoticeBar::details(const QString& subject) const {
  const Notice* const notice = notices_.value(subject);
  return notice == nullptr ? QStringList() : notice->details();
}

bool NoticeBar::warns(const QString& subject) const {
  const Notice* const notice = notices_.value(subject);
  return notice != nullptr && notice->warns();
}

}  // namespace tarnlog
