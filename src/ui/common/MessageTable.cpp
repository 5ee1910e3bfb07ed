#include "ui/common/MessageTable.h"

#include <QCoreApplication>
#include <QShortcut>
#include <QTextBrowser>
#include <QVBoxLayout>

#include "platform/base/TarnError.h"
#include "ui/common/Convert.h"
#include "ui/common/Guide.h"

namespace tarnlog {

namespace {

struct MessageTable {
  Q_DECLARE_TR_FUNCTIONS(MessageTable)
};

QString textOf(const Guide& guide) {
  try {
    return guide.messages();
  } catch (const TarnError& error) {
    return MessageTable::tr("The guide cannot be read: %1").arg(toQString(error.description()));
  }
}

}  // namespace

void showMessageTable(const Guide& guide, QWidget& owner) {
  auto* const table = new QWidget(&owner, Qt::Tool);
  table->setAttribute(Qt::WA_DeleteOnClose);
  table->setObjectName("messageTable");
  table->setWindowTitle(MessageTable::tr("What the messages mean"));
  auto* const text = new QTextBrowser;
  text->setAccessibleName(table->windowTitle());
  text->setMarkdown(textOf(guide));
  auto* const column = new QVBoxLayout(table);
  column->setContentsMargins({});
  column->addWidget(text);
  QObject::connect(new QShortcut(Qt::Key_Escape, table), &QShortcut::activated, table, &QWidget::close);
  table->resize(720, 480);
  table->show();
  table->activateWindow();
  text->setFocus();
}

}  // namespace tarnlog
