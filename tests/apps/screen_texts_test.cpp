#include <gmock/gmock.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QPlainTextEdit>
#include <QProgressDialog>
#include <QRegularExpression>
#include <QTextDocumentFragment>
#include <QTranslator>
#include <cerrno>
#include <nlohmann/json.hpp>
#include <set>
#include <system_error>

#include "platform/text/Told.h"
#include "tests/apps/ScreenTour.h"

namespace tarnlog {
namespace {

/// Folders and files; the acquisition's log, which is in the system's own words.
const QStringList kOthers{"SaveDir", "SaveFile", "log"};

constexpr QChar kOpen(0x2039);
constexpr QChar kClose(0x203A);

QString marked(const QString& text) { return text.isEmpty() ? text : kOpen + text + kClose; }

/// A language that puts every text that has a translation in marks. What the toolkit says is its own affair.
class MarkedTexts : public QTranslator {
 public:
  MarkedTexts() {
    for (const char* const name : {"tarnlog_de.qm", "tarn-record_de.qm"})
      EXPECT_TRUE(texts_.emplace_back(std::make_unique<QTranslator>())->load(QString(TARNLOG_QM "/") + name));
    QCoreApplication::installTranslator(this);
    Told::setTranslator(
        [this](const char* source) { return fromQString(translate("Told", source, nullptr, -1)); });
  }
  ~MarkedTexts() override { Told::setTranslator({}); }

  bool isEmpty() const override { return false; }
  QString translate(const char* context, const char* source, const char* comment, int n) const override {
    const QString text = QString::fromUtf8(source);
    if (context[0] == 'Q' && context != std::string("QObject") && context != std::string("QtDialogs"))
      return marked(text);
    for (const auto& each : texts_)
      if (!each->translate(context, source, comment, n).isEmpty()) return marked(text);
    return {};
  }

 private:
  std::vector<std::unique_ptr<QTranslator>> texts_;
};

/// What is left of a text when all that is in marks is taken out.
QString besideMarks(const QString& text) {
  QString rest;
  int depth = 0;
  for (const QChar c : text) {
    depth += c == kOpen ? 1 : 0;
    if (depth == 0) rest += c;
    depth -= c == kClose ? 1 : 0;
  }
  return rest;
}

void addStrings(const nlohmann::json& json, std::set<QString>& strings) {
  if (json.is_string()) strings.insert(toQString(json.get<std::string>()));
  if (!json.is_structured()) return;
  for (const auto& each : json) addStrings(each, strings);
}

/// Names, units and labels of the car and of the records that are looked at; what is the same in every
/// language.
std::vector<QString> data() {
  std::set<QString> strings{"Tarnlog2001", "Tarnlog", "Tarnlog2000",  "F1",
                            "road-car",    "UTF-8",   "windows-1252", "MB"};
  strings.insert({"Speed", "Brake", "Gear", "Gearbox", "Status", "Id"});
  strings.insert(toQString(std::generic_category().message(EACCES)));
  addStrings(
      nlohmann::json::parse(SystemFileSystem().readAll(TARNLOG_SOURCE_DIR "/examples/road-car.vehicle.json")),
      strings);
  std::vector<QString> data(strings.begin(), strings.end());
  std::ranges::sort(data, std::greater(), &QString::size);  // a name may contain another one
  return data;
}

/// Every text that people read or are read, of what is shown now.
class ShownTexts {
 public:
  void look(const std::string& stop) {
    stop_ = stop;
    for (const QWidget* const top : QApplication::topLevelWidgets()) {
      if (!top->isVisible()) continue;
      add(*top);
      for (const QWidget* const widget : top->findChildren<QWidget*>())
        if (widget->isVisible()) add(*widget);
      for (const QAction* const action : top->findChildren<QAction*>())
        for (const QString& text : {action->text(), action->toolTip()}) add("action", text);
    }
  }

  std::set<std::string> plain;  ///< those with words that are in no mark
  std::size_t seen = 0;

 private:
  void add(const std::string& what, const QString& text) {
    if (!known_.insert(text).second || text.isEmpty()) return;
    ++seen;
    QString rest =
        besideMarks(Qt::mightBeRichText(text) ? QTextDocumentFragment::fromHtml(text).toPlainText() : text);
    // Paths, names of files, links; the letters of keys and cursors.
    static const QRegularExpression name(R"((?<!\S)(/|\w+://?|replay:)\S*|\S*\.(txt|xml|mf4|json|csv)\b)");
    static const QRegularExpression word(R"(\p{L}{2,})");
    rest.remove(name);
    for (const QString& each : data_) rest.remove(each);
    if (rest.contains(word)) plain.insert(stop_ + ": " + what + ": " + fromQString(text));
  }
  void add(const QWidget& widget) {
    const std::string name =
        std::string(widget.metaObject()->className()) + " " + fromQString(widget.objectName());
    for (const QString& text : {widget.windowTitle(), widget.toolTip(), widget.accessibleName(),
                                widget.accessibleDescription(), widget.statusTip()})
      add(name, text);
    for (const char* const property : {"title", "placeholderText", "labelText", "specialValueText"})
      add(name, widget.property(property).toString());
    const bool typed = qobject_cast<const QLineEdit*>(&widget) != nullptr;  // by the user
    if (!typed) add(name, widget.property("text").toString());
    if (const auto* const tabs = qobject_cast<const QTabBar*>(&widget))
      for (int tab = 0; tab < tabs->count(); ++tab) {
        add(name, tabs->tabText(tab));
        add(name, tabs->tabToolTip(tab));
      }
    if (const auto* const box = qobject_cast<const QComboBox*>(&widget))
      for (int item = 0; item < box->count(); ++item) {
        add(name, box->itemText(item));
        add(name, box->itemData(item, Qt::ToolTipRole).toString());
      }
    if (const auto* const view = qobject_cast<const QAbstractItemView*>(&widget)) addItems(name, *view);
  }
  void addItems(const std::string& name, const QAbstractItemView& view) {
    const QAbstractItemModel* const model = view.model();
    if (model == nullptr || kOthers.contains(view.objectName())) return;
    for (int column = 0; column < model->columnCount(); ++column) {
      add(name, model->headerData(column, Qt::Horizontal).toString());
      add(name, model->headerData(column, Qt::Horizontal, Qt::ToolTipRole).toString());
      for (int row = 0; row < model->rowCount(); ++row)
        for (const int role : {Qt::DisplayRole, Qt::ToolTipRole})
          add(name, model->index(row, column).data(role).toString());
    }
  }

  std::vector<QString> data_ = data();
  std::set<QString> known_;
  std::string stop_;
};

/// A text that is no tr(), or that "./dev texts" has not found, is English for everybody.
TEST(ScreenTexts, AreAllTranslated) {
  const MarkedTexts language;
  ShownTexts texts;
  test::ScreenTour tour([&](const std::string& stop) { texts.look(stop); });
  tour.walk();
  EXPECT_GT(texts.seen, 500U);
  EXPECT_THAT(texts.plain, testing::IsEmpty()) << "make it a tr(), and run ./dev texts";
}

}  // namespace
}  // namespace tarnlog
