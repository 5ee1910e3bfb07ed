#include "ui/review/TarnReview.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QLineEdit>
#include <QMimeData>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QSplitter>
#include <QTabWidget>
#include <QToolButton>
#include <algorithm>
#include <fstream>
#include <sstream>

#include "tests/support/Gestures.h"
#include "tests/support/ReadBack.h"
#include "tests/support/ScriptedDialogs.h"
#include "tests/support/TempFolder.h"
#include "tests/support/WidgetText.h"
#include "ui/common/NoticeBar.h"
#include "ui/review/ReviewEnvironment.h"
#include "ui/review/ReviewGraphWidget.h"

namespace tarnlog::test {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

/// A minute, a row a second: 3 km/h faster each second up to 120 km/h, then slower again; `late` seconds of
/// standing first, the brake towards the end, an event at 30 s.
std::string drive(int late = 0) {
  std::string text =
      "time\tevent\t\"Engine\"\t\"Engine\"\t\"Brakes\"\t\"Gearbox\"\r\n"
      "1.2.26\t\t\"Status\"\t\"Status\"\t\"Id\"\t\"Id\"\r\n"
      "10:00:00\t\t\"Speed(km/h)\"\t\"Water(\xB0"
      "C)\"\t\"Pedal\"\t\"Gear\"\r\n";
  for (int t = 0; t <= 60; ++t) {
    const int driven = std::max(t - late, 0);
    const int speed = driven <= 40 ? 3 * driven : 240 - 3 * driven;
    const char* const mark = t == 0 ? "Start" : t == 30 ? "event1" : t == 60 ? "Stop" : "";
    text += std::to_string(t) + "\t\"" + mark + "\"\t" + std::to_string(speed) + "\t" +
            std::to_string(20 + driven) + "." + "5\t" + (driven > 40 ? "1" : "0") + "\t" +
            (driven == 0 ? "neutral" : "drive") + "\r\n";
  }
  return text;
}

/// The control in a shown window, over files in a folder of its own.
struct ReviewRig {
  TempFolder folder;
  ScriptedDialogs dialogs;
  MemorySettingsStore settings;
  bool recording = false;
  ReviewEnvironment environment{.dialogs = dialogs,
                                .settings = &settings,
                                .isBeingRecorded = [this](const std::string&) { return recording; }};
  TarnReview review{environment};

  ReviewRig() {
    write("1-2-26_10h00mn00.txt", drive());
    write("2-2-26_10h00mn00.txt", drive(5));
    review.resize(1100, 750);
    review.show();
  }

  void write(const std::string& name, const std::string& bytes) const {
    std::ofstream(folder / name, std::ios::binary) << bytes;
  }
  std::string read(const std::string& name) const {
    std::stringstream bytes;
    bytes << std::ifstream(folder / name, std::ios::binary).rdbuf();
    return bytes.str();
  }

  static bool runUntil(const std::function<bool()>& done) { return QTest::qWaitFor(done, 10'000); }
  bool open(const std::vector<std::string>& names) {
    std::vector<std::string> paths;
    for (const std::string& name : names) paths.push_back(folder / name);
    QSignalSpy finished(&review, &TarnReview::finishedLoading);
    review.open(paths);
    return runUntil([&] { return finished.size() == static_cast<qsizetype>(names.size()); });
  }

  QAbstractItemView& view(const char* name) { return childOf<QAbstractItemView>(review, name); }
  std::string cell(const char* view_, int row, int column) {
    return view(view_).model()->index(row, column).data().toString().toStdString();
  }
  /// The row of figures of this curve, cells with bars between them, once the medians are there.
  std::string figures(const std::string& name) {
    QAbstractItemModel& model = *view("reviewFigures").model();
    std::string text;
    runUntil([&] {
      text.clear();
      for (int row = 0; row < model.rowCount(); ++row) {
        if (!cell("reviewFigures", row, 0).starts_with(name)) continue;
        for (int column = 0; column < model.columnCount(); ++column)
          text += (column == 0 ? "" : "|") + cell("reviewFigures", row, column);
      }
      return !text.empty() && text.find("...") == std::string::npos;
    });
    return text;
  }
  void click(const char* name) { QTest::mouseClick(&childOf(review, name), Qt::LeftButton); }
  void type(const char* name, const QString& text) {
    auto& line = childOf<QLineEdit>(review, name);
    line.clear();
    QTest::keyClicks(&line, text);
  }
  void showPane(int tab) { childOf<QTabWidget>(review, "reviewPanes").setCurrentIndex(tab); }
  std::string answer() { return childOf<QLabel>(review, "findAnswer").text().toStdString(); }
  /// Chooses the curve of the row of figures that begins so.
  void chooseCurve(const std::string& name) {
    figures(name);
    QAbstractItemView& table = view("reviewFigures");
    for (int row = 0; row < table.model()->rowCount(); ++row)
      if (cell("reviewFigures", row, 0).starts_with(name))
        table.setCurrentIndex(table.model()->index(row, 0));
  }
};

TEST(TarnReview, AnswersWhatARecordIsAskedFor) {
  ReviewRig rig;
  QSignalSpy titles(&rig.review, &TarnReview::titleChanged);
  ASSERT_TRUE(rig.open({"1-2-26_10h00mn00.txt"}));
  EXPECT_EQ(titles.last().first(), "1-2-26_10h00mn00.txt");
  EXPECT_EQ(itemsText(rig.view("reviewData"), {0, 1, 2}),
            "Speed|km/h|numbers Water|°C|numbers Pedal||on/off Gear||labels");
  EXPECT_THAT(rig.figures("Speed"), HasSubstr("|0|0 s|120|40 s|"));

  rig.review.scene().setCursor(ReviewCursor::A, 10);
  rig.review.scene().setCursor(ReviewCursor::B, 40);
  rig.type("reviewLevel", "60");
  rig.runUntil([&] { return rig.figures("Speed").ends_with("19 s"); });
  EXPECT_EQ(rig.figures("Speed"), "Speed [km/h]|30|120|90|3|30|10 s|120|40 s|75|75|27.28|19 s");
  EXPECT_EQ(childOf<QLabel>(rig.review, "reviewCursors").text(), "A: 10 s    B: 40 s    B - A: 30 s");
  EXPECT_THAT(rig.figures("Gear"), HasSubstr("Gear|drive|drive|"));
  rig.click("copyFigures");
  EXPECT_THAT(QGuiApplication::clipboard()->text().toStdString(), HasSubstr("\nSpeed [km/h]\t30\t120\t90\t"));

  rig.chooseCurve("Speed");
  rig.showPane(2);
  rig.review.scene().setCursor(ReviewCursor::Readout, 0);
  rig.type("findLevel", "100");
  rig.click("findNext");
  EXPECT_EQ(rig.answer(), "At 34 s: 102 km/h");
  EXPECT_EQ(rig.review.scene().cursor(ReviewCursor::Readout), 34);
  rig.click("findNext");
  EXPECT_EQ(rig.answer(), "It does not rise to 100 after 34 s. The last time was at 34 s.");
  rig.type("findLevel", "130");
  rig.click("findBack");
  EXPECT_EQ(rig.answer(), "It does not rise to 130 before 34 s. All of it lies between 0 and 120.");
  rig.type("findLevel", "100");
  childOf<QComboBox>(rig.review, "findWhat").setCurrentIndex(1);
  QTest::keyClick(&rig.review, Qt::Key_F3);
  EXPECT_EQ(rig.answer(), "At 47 s: 99 km/h");
  rig.chooseCurve("Gear");
  childOf<QComboBox>(rig.review, "findWhat").setCurrentIndex(2);
  QTest::keyClick(&rig.review, Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_EQ(rig.answer(), "At 1 s");
  rig.showPane(0);
  QTest::keyClick(&rig.review, Qt::Key_F3, Qt::ShiftModifier);
  EXPECT_EQ(rig.answer(), "It does not change before 1 s. The first time is at 1 s.");
  EXPECT_TRUE(childOf<QLabel>(rig.review, "findAnswer").isVisible()) << "why F3 did nothing";

  rig.showPane(1);
  EXPECT_EQ(itemsText(rig.view("reviewMarks"), {0, 1}),
            "0 s|Start of recording 30 s|Event 1 1 min|Stop of recording");
  rig.review.scene().show({0, 10});
  QAbstractItemView& marks = rig.view("reviewMarks");
  QTest::mouseClick(marks.viewport(), Qt::LeftButton, {},
                    marks.visualRect(marks.model()->index(1, 0)).center());
  EXPECT_EQ(rig.review.scene().cursor(ReviewCursor::Readout), 30);
  EXPECT_EQ(rig.review.scene().span().from, 25);
}

/// Check marks, the filter, what is dragged; and the narrow window, where the list is a pane of its own.
TEST(TarnReview, ChoosesWhatIsShown) {
  ReviewRig rig;
  ASSERT_TRUE(rig.open({"1-2-26_10h00mn00.txt"}));
  QAbstractItemView& list = rig.view("reviewData");
  const auto shown = [&](int row) { return list.model()->index(row, 0).data(Qt::CheckStateRole).toInt(); };
  ASSERT_EQ(shown(0), Qt::Checked);
  list.setFocus();
  list.setCurrentIndex(list.model()->index(0, 0));
  QTest::keyClick(&list, Qt::Key_Delete);
  EXPECT_EQ(shown(0), Qt::Unchecked);
  QTest::keyClick(&list, Qt::Key_Return);
  EXPECT_EQ(shown(0), Qt::Checked);
  const std::unique_ptr<QMimeData> dragged(list.model()->mimeData({list.model()->index(1, 0)}));
  EXPECT_EQ(dragged->data("application/x-tarnlog-curve"), "0 0 1\n");

  QTest::keyClick(&rig.review, Qt::Key_F, Qt::ControlModifier);
  rig.type("filterReviewData", "gearbox id");
  EXPECT_EQ(itemsText(list), "Gear");
  rig.review.resize(480, 700);
  EXPECT_TRUE(childOf<QTabWidget>(rig.review, "reviewPanes").isAncestorOf(&list));
  rig.review.resize(1100, 750);
  EXPECT_FALSE(childOf<QTabWidget>(rig.review, "reviewPanes").isAncestorOf(&list));
  EXPECT_TRUE(list.isVisible());

  dynamic_cast<QSplitter&>(*list.parentWidget()->parentWidget()).setSizes({333, 700});
  const int wide = list.width();
  rig.review.closeRecords();
  rig.review.hide();
  TarnReview next(rig.environment);
  next.resize(1100, 750);
  next.show();
  next.open(rig.folder / "1-2-26_10h00mn00.txt");
  auto& nextList = childOf<QAbstractItemView>(next, "reviewData");
  EXPECT_TRUE(rig.runUntil([&] { return nextList.isVisible() && nextList.width() == wide; }))
      << nextList.width();
}

TEST(TarnReview, LaysRecordsOverEachOther) {
  ReviewRig rig;
  rig.write("event1_1-2-26_10h00mn00.txt", "time\tevent\t\"Speed(km/h)\"\r\n29,9\t\"event\"\t90\r\n");
  ASSERT_TRUE(rig.open({"1-2-26_10h00mn00.txt", "2-2-26_10h00mn00.txt"}));
  rig.review.resize(1100, 600);
  const auto inSight = [&](std::size_t graph) {
    const auto all = rig.review.findChildren<ReviewGraphWidget*>();
    const auto found = std::ranges::find(all, graph, &ReviewGraphWidget::graph);
    return found != all.end() && (*found)->visibleRegion().boundingRect().height() > (*found)->height() / 2;
  };
  rig.chooseCurve("Speed [");
  EXPECT_EQ(rig.cell("reviewFigures", 1, 0), "Speed (2) [km/h]") << "below its partner";
  EXPECT_THAT(itemsText(rig.view("reviewData")), HasSubstr("Gear Speed (2) "));
  childOf<QAction>(rig.review, "reviewDifference").trigger();
  EXPECT_TRUE(inSight(3)) << "what was asked for";
  EXPECT_FALSE(inSight(0)) << "the graphs scroll";
  rig.chooseCurve("Speed (2)");
  EXPECT_TRUE(inSight(0));
  EXPECT_THAT(rig.figures("Speed − Speed (2)"), HasSubstr("|-15|45 s|15|5 s|"));

  auto& aligned = childOf<QComboBox>(rig.review, "reviewAligned");
  EXPECT_EQ(aligned.currentText(), "At the start of recording");
  EXPECT_NE(aligned.findText("By clock"), -1);
  childOf<QDoubleSpinBox>(rig.review, "reviewOffset").setValue(-5);
  EXPECT_EQ(rig.review.scene().records()[1].offset, -5);
  EXPECT_EQ(aligned.currentText(), "By hand");
  EXPECT_TRUE(rig.runUntil(
      [&] { return rig.figures("Speed − Speed (2)").find("|0|0 s|0|0 s|") != std::string::npos; }));

  rig.showPane(1);
  QAbstractItemView& marks = rig.view("reviewMarks");
  for (int row = 0; row < marks.model()->rowCount(); ++row)
    if (rig.cell("reviewMarks", row, 1) == "Event 1 (record 1)")
      marks.setCurrentIndex(marks.model()->index(row, 0));
  rig.click("openEventFile");
  EXPECT_TRUE(rig.runUntil([&] { return rig.review.scene().records().size() == 3; }));
  rig.review.layOver(rig.folder / "1-2-26_10h00mn00.txt");
  EXPECT_THAT(rig.review.notices().notice("most").toStdString(), HasSubstr("At most 3 records"));

  const auto closers = rig.review.findChildren<QToolButton*>("reviewRemoveRecord");
  QTest::mouseClick(closers.front(), Qt::LeftButton);
  EXPECT_EQ(rig.review.scene().records().size(), 2);
  EXPECT_EQ(rig.review.scene().records()[0].name, "2-2-26_10h00mn00.txt");
}

TEST(TarnReview, HandsOnThePartBetweenTheCursors) {
  ReviewRig rig;
  ASSERT_TRUE(rig.open({"1-2-26_10h00mn00.txt"}));
  rig.review.scene().setCursor(ReviewCursor::A, 29.5);
  rig.review.scene().setCursor(ReviewCursor::B, 31);
  const auto save = [&](const char* action, const std::string& path) {
    rig.dialogs.filesToSave = {toQString(path)};
    childOf<QAction>(rig.review, action).trigger();
    rig.runUntil([&] { return !rig.review.notices().notice("handOn").startsWith("Writing"); });
    return rig.review.notices().notice("handOn").toStdString();
  };
  EXPECT_EQ(save("saveCsv", rig.folder / "part.csv"), "Written: " + rig.folder / "part.csv");
  EXPECT_EQ(rig.read("part.csv"),
            "\xEF\xBB\xBFtime [s],mark,Speed [km/h],Water "
            "[°C],Pedal,Gear\n30,event1,90,50.5,0,drive\n31,,93,51.5,0,drive\n");
  save("saveMf4", rig.folder / "part.mf4");
  EXPECT_EQ(readBack(rig.read("part.mf4"), {}, "part.mf4").lines(), 3);
  EXPECT_THAT(save("saveCsv", rig.folder / "1-2-26_10h00mn00.txt"), HasSubstr("this is the record itself"));
  EXPECT_EQ(rig.read("1-2-26_10h00mn00.txt"), drive());
  EXPECT_TRUE(rig.review.notices().warns("handOn"));
  const std::vector<ReviewGraph> graphs = rig.review.scene().graphs();
  rig.review.scene().setGraphs({});
  childOf<QAction>(rig.review, "onlyShown").setChecked(true);
  childOf<QAction>(rig.review, "saveCsv").trigger();
  EXPECT_THAT(rig.review.notices().notice("handOn").toStdString(),
              HasSubstr("no data of 1-2-26_10h00mn00.txt"));
  rig.review.scene().setGraphs(graphs);
  EXPECT_THAT(save("savePicture", rig.folder / "seen.png"), HasSubstr("Written"));
  EXPECT_FALSE(rig.review.notices().warns("handOn")) << "good news";
  EXPECT_THAT(rig.read("seen.png"), HasSubstr("PNG"));
  ASSERT_TRUE(rig.open({"1-2-26_10h00mn00.txt", "2-2-26_10h00mn00.txt"}));
  rig.chooseCurve("Speed (2)");
  EXPECT_EQ(childOf<QAction>(rig.review, "saveCsv").text(), "Save part of 2-2-26_10h00mn00.txt as &CSV...");
  EXPECT_THAT(save("saveCsv", rig.folder / "second.csv"), HasSubstr("second.csv, the part of 2-2-26_10h"));
}

TEST(TarnReview, SaysWhatIsWrongWithAFile) {
  ReviewRig rig;
  rig.write("empty.txt", "");
  rig.review.open(rig.folder / "empty.txt");
  const QString empty = "failed " + toQString(rig.folder / "empty.txt");
  EXPECT_TRUE(rig.runUntil([&] { return !rig.review.notices().notice(empty).isEmpty(); }));
  rig.write("cut.txt", drive() + "61\t\"\"\t5");
  ASSERT_TRUE(rig.open({"cut.txt"}));
  EXPECT_THAT(rig.review.notices().notice("missing " + toQString(rig.folder / "cut.txt")).toStdString(),
              HasSubstr("the row is not whole"));

  const std::string xml =
      "<?xml version=\"1.0\"?>\r\n<Tarnlog2000><Description>Data file</Description><Datas><Data name=\"v\"/>"
      "</Datas>\r\n\t<row Time=\"0,5\" Event=\"Start\" C1=\"1,5\"/>\r\n";
  const QString open = "missing " + toQString(rig.folder / "open.xml");
  rig.write("open.xml", xml);
  rig.recording = true;
  ASSERT_TRUE(rig.open({"open.xml"}));
  EXPECT_EQ(rig.review.notices().notice(open), "") << "this program is writing it";
  rig.recording = false;
  EXPECT_TRUE(rig.runUntil([&] { return rig.review.notices().notice(open).contains("not closed"); }));
  std::ofstream(rig.folder / "open.xml", std::ios::binary | std::ios::app) << "</Tarnlog2000>\r\n";
  EXPECT_TRUE(rig.runUntil([&] { return rig.review.notices().notice(open).isEmpty(); })) << "it is whole now";

  rig.write("other.csv", "made by something else\nclock;speed\n0,5;10\n1,5;20\n2,5;40\n");
  const auto askAbout = [&](const char* name) {
    rig.review.open(rig.folder / name);
    EXPECT_TRUE(rig.runUntil([&] {
      const auto* const offer = rig.review.findChild<QPushButton*>("action");
      return offer != nullptr && offer->isVisible();
    }));
    rig.click("action");
  };
  askAbout("other.csv");
  auto& dialog = childOf<QWidget>(rig.review, "ForeignTableDialog");
  EXPECT_EQ(childOf<QComboBox>(dialog, "foreignSeparator").currentText(), "Semicolon");
  childOf<QSpinBox>(dialog, "foreignHeaders").setValue(5);
  EXPECT_FALSE(childOf<QPushButton>(dialog, "foreignAccept").isEnabled());
  childOf<QSpinBox>(dialog, "foreignHeaders").setValue(2);
  childOf<QComboBox>(dialog, "foreignTime").setCurrentIndex(1);
  childOf<QComboBox>(dialog, "foreignUnit").setCurrentText("minutes");
  QSignalSpy finished(&rig.review, &TarnReview::finishedLoading);
  QTest::mouseClick(&childOf(dialog, "foreignAccept"), Qt::LeftButton);
  EXPECT_TRUE(rig.runUntil([&] { return finished.size() == 1; }));
  EXPECT_THAT(rig.figures("speed"), HasSubstr("|10|30 s|40|2:30 min|"));

  askAbout("other.csv");
  EXPECT_EQ(childOf<QComboBox>(rig.review, "foreignUnit").currentText(), "minutes") << "as the last time";
  childOf<QDialog>(rig.review, "ForeignTableDialog").close();
  rig.runUntil([&] { return rig.review.findChild<QDialog*>("ForeignTableDialog") == nullptr; });
  rig.write("commas.csv", "clock,speed\n0.5,10\n1.5,20\n");
  askAbout("commas.csv");
  EXPECT_EQ(childOf<QComboBox>(rig.review, "foreignUnit").currentText(), "seconds") << "that did not suit";
}

}  // namespace
}  // namespace tarnlog::test
