#include <QAbstractItemModel>
#include <QApplication>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QShortcut>
#include <QTreeView>
#include <QTreeWidget>
#include <memory>
#include <string>

#include "bench/support/Goals.h"
#include "bench/support/LeanSession.h"
#include "catalogue/SessionDocument.h"
#include "config/oTarnParameters.h"
#include "tests/support/MemoryFileSystem.h"
#include "ui/common/Icons.h"
#include "ui/select/TarnSelect.h"

/// The data selection screen over a catalogue of 200,000 data, shown to nobody.
namespace {

using namespace tarnlog;

constexpr int kRequests = 100;
constexpr int kDataPerRequest = 50;

const bench::LeanSession& session() {
  static const bench::LeanSession built(40, kRequests, kDataPerRequest);
  return built;
}

std::shared_ptr<const SessionDocument> document() {
  static const auto built = std::make_shared<const SessionDocument>(BuildSessionDocument(session()));
  return built;
}

void show() { QApplication::processEvents(); }

void buildDocument(benchmark::State& state) {
  session();
  for (auto _ : state) {
    auto built = std::make_unique<SessionDocument>(BuildSessionDocument(session()));
    state.PauseTiming();
    built.reset();
    state.ResumeTiming();
  }
}

/// A screen as a user sees it.
struct Screen {
  Screen() {
    screen.resize(1000, 700);
    screen.show();
    screen.setXmlSession(document());
    screen.setParameters(parameters);
    show();
  }
  QModelIndex ecu(int row) const { return tree.model()->index(row, 0); }
  void expandEcu(int row) {
    tree.expand(ecu(row));
    show();
  }
  /// So many data, all of their requests.
  void selectData(int count) {
    const QModelIndex parent = ecu(0);
    const QModelIndex first = tree.model()->index(0, 0, parent);
    const QModelIndex last = tree.model()->index(count / kDataPerRequest - 1, 0, parent);
    tree.selectionModel()->select(QItemSelection(first, last), QItemSelectionModel::ClearAndSelect);
  }
  void addSelected() { screen.findChild<QPushButton*>("addData")->click(); }
  void removeAll() {
    list.selectAll();
    screen.findChild<QPushButton*>("removeData")->click();
  }
  void undo() {
    for (auto* const key : screen.findChildren<QShortcut*>())
      if (key->key() == QKeySequence(QKeySequence::Undo)) emit key->activated();
  }
  void moveLastToTop() {
    QAbstractItemModel& model = *list.model();
    const std::unique_ptr<QMimeData> dragged(model.mimeData({model.index(model.rowCount() - 1, 0)}));
    model.dropMimeData(dragged.get(), Qt::MoveAction, 0, 0, {});
  }

  std::shared_ptr<oTarnParameters> parameters = std::make_shared<oTarnParameters>(MemorySettingsStore());
  TarnSelect screen;
  QTreeView& tree = *screen.findChild<QTreeView*>("TreeAllData");
  QTreeView& list = *screen.findChild<QTreeView*>("ListDataToRecord");
};

void openScreen(benchmark::State& state) {
  document();
  for (auto _ : state) {
    auto opened = std::make_unique<Screen>();
    opened->expandEcu(0);
    state.PauseTiming();
    opened.reset();
    state.ResumeTiming();
  }
}

/// What is laid out costs its painting, which is the same whoever fills: it is left out on both sides.
void expandEcu(benchmark::State& state, const char* shape) {
  Screen opened;
  opened.screen.setUpdatesEnabled(false);
  opened.screen.findChild<QAction*>(shape)->trigger();
  for (auto _ : state) {
    opened.expandEcu(0);
    state.PauseTiming();
    opened.tree.collapseAll();
    opened.screen.Clear();
    show();
    state.ResumeTiming();
  }
}
void expandByRequest(benchmark::State& state) { expandEcu(state, "R"); }
void expandByData(benchmark::State& state) { expandEcu(state, "D"); }

QString nameOf(XmlElement element) { return QString::fromUtf8(element.attributeOrEmpty("name").data()); }

/// The nodes that an ECU has in either shape, each an item object.
void addItems(QTreeWidgetItem* ecu, XmlElement uce, bool byRequest) {
  static const QIcon icon = tarnIcon("data");
  for (XmlElement request = uce.firstChild("request"); request; request = request.nextSibling("request")) {
    const QString name = nameOf(request);
    QTreeWidgetItem* const parent = byRequest ? new QTreeWidgetItem(ecu, {name}) : ecu;
    if (byRequest) parent->setIcon(0, icon);
    for (XmlElement data = request.firstChild("data"); data; data = data.nextSibling("data")) {
      const QString text = byRequest ? nameOf(data) : nameOf(data) + " (" + name + ")";
      (new QTreeWidgetItem(parent, {text}))->setIcon(0, icon);
    }
  }
}

void fillTreeWidget(benchmark::State& state, bool byRequest) {
  const XmlElement uce = document()->document().selectSingleNode("Tarnlog2000/uce");
  for (auto _ : state) {
    state.PauseTiming();
    auto tree = std::make_unique<QTreeWidget>();
    tree->setUpdatesEnabled(false);
    tree->setUniformRowHeights(true);
    tree->resize(500, 700);
    tree->show();
    show();
    state.ResumeTiming();
    auto* const ecu = new QTreeWidgetItem(tree.get(), {nameOf(uce)});
    addItems(ecu, uce, byRequest);
    ecu->setExpanded(true);
    show();
    state.PauseTiming();
    tree.reset();
    state.ResumeTiming();
  }
}
void fillWidgetByRequest(benchmark::State& state) { fillTreeWidget(state, true); }
void fillWidgetByData(benchmark::State& state) { fillTreeWidget(state, false); }

/// One key of a text that is typed from its first to its last letter.
void typing(benchmark::State& state, const QString& text) {
  Screen opened;
  auto& filter = *opened.screen.findChild<QLineEdit*>("filterAllData");
  qsizetype length = 0;
  for (auto _ : state) {
    length = length % text.size() + 1;
    filter.setText(text.left(length));
    show();
  }
}
void keystroke(benchmark::State& state) { typing(state, "quantity 37.12 unit 7"); }
/// The most that a key can find: everything.
void firstLetter(benchmark::State& state) {
  Screen opened;
  auto& filter = *opened.screen.findChild<QLineEdit*>("filterAllData");
  bool other = false;
  for (auto _ : state) {
    filter.setText((other = !other) ? "u" : "e");
    show();
  }
}

void add(benchmark::State& state, int count) {
  for (auto _ : state) {
    state.PauseTiming();
    auto opened = std::make_unique<Screen>();
    opened->expandEcu(0);
    opened->selectData(count);
    show();
    state.ResumeTiming();
    opened->addSelected();
    show();
    state.PauseTiming();
    opened.reset();
    state.ResumeTiming();
  }
}

/// A screen with so many data in its list.
std::unique_ptr<Screen> filled(int count) {
  auto opened = std::make_unique<Screen>();
  opened->expandEcu(0);
  opened->selectData(count);
  opened->addSelected();
  show();
  return opened;
}

/// Removes everything and takes it back.
void removeAndUndo(benchmark::State& state, int count) {
  const auto opened = filled(count);
  for (auto _ : state) {
    opened->removeAll();
    show();
    opened->undo();
    show();
  }
}

void moveToTop(benchmark::State& state, int count) {
  const auto opened = filled(count);
  for (auto _ : state) {
    opened->moveLastToTop();
    show();
  }
}

void save(benchmark::State& state, int count) {
  const auto opened = filled(count);
  test::MemoryFileSystem files;
  for (auto _ : state) opened->parameters->SaveXmlConfiguration(files, "/rec/big.xml", "tarnlog.xsl");
}

void add1000(benchmark::State& state) { add(state, 1000); }
void add4000(benchmark::State& state) { add(state, 4000); }
void remove1000(benchmark::State& state) { removeAndUndo(state, 1000); }
void remove4000(benchmark::State& state) { removeAndUndo(state, 4000); }
void moveToTop1000(benchmark::State& state) { moveToTop(state, 1000); }
void moveToTop4000(benchmark::State& state) { moveToTop(state, 4000); }
void save1000(benchmark::State& state) { save(state, 1000); }
void save4000(benchmark::State& state) { save(state, 4000); }

BENCHMARK(buildDocument)->Unit(benchmark::kMillisecond);
BENCHMARK(openScreen)->Unit(benchmark::kMillisecond);
BENCHMARK(expandByRequest)->Unit(benchmark::kMillisecond);
BENCHMARK(expandByData)->Unit(benchmark::kMillisecond);
BENCHMARK(fillWidgetByRequest)->Unit(benchmark::kMillisecond);
BENCHMARK(fillWidgetByData)->Unit(benchmark::kMillisecond);
BENCHMARK(keystroke)->Unit(benchmark::kMillisecond);
BENCHMARK(firstLetter)->Unit(benchmark::kMillisecond);
BENCHMARK(add1000)->Unit(benchmark::kMillisecond);
BENCHMARK(add4000)->Unit(benchmark::kMillisecond);
BENCHMARK(remove1000)->Unit(benchmark::kMillisecond);
BENCHMARK(remove4000)->Unit(benchmark::kMillisecond);
BENCHMARK(moveToTop1000)->Unit(benchmark::kMillisecond);
BENCHMARK(moveToTop4000)->Unit(benchmark::kMillisecond);
BENCHMARK(save1000)->Unit(benchmark::kMillisecond);
BENCHMARK(save4000)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  int none = 1;
  QApplication application(none, argv);
  tarnlog::bench::Goals goals;
  using tarnlog::bench::atMost;
  goals.ratio("selection_open", "openScreen", "buildDocument", atMost(2));
  goals.ratio("selection_expand_by_request", "expandByRequest", "fillWidgetByRequest", atMost(0.2));
  goals.ratio("selection_expand_by_data", "expandByData", "fillWidgetByData", atMost(0.2));
  goals.ratio("selection_keystroke", "keystroke", "buildDocument", atMost(0.05));
  goals.ratio("selection_first_letter", "firstLetter", "buildDocument", atMost(0.05));
  // Four times as many data: linear work gives 4, work that grows with the square 16.
  goals.ratio("selection_add_growth", "add4000", "add1000", atMost(6));
  goals.ratio("selection_remove_growth", "remove4000", "remove1000", atMost(6));
  goals.ratio("selection_move_growth", "moveToTop4000", "moveToTop1000", atMost(6));
  goals.ratio("selection_save_growth", "save4000", "save1000", atMost(6));
  return goals.run(argc, argv);
}
