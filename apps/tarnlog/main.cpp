#include <CLI/CLI.hpp>
#include <QApplication>
#include <QMessageBox>
#include <cstdio>
#include <exception>
#include <optional>
#include <string>

#include "apps/common/ArgumentChecks.h"
#include "apps/common/BadInput.h"
#include "apps/common/CommandLine.h"
#include "apps/common/Completion.h"
#include "apps/common/HelpFormatter.h"
#include "apps/common/Signals.h"
#include "apps/common/StandardStreams.h"
#include "apps/common/TerminalText.h"
#include "apps/tarnlog/Display.h"
#include "apps/tarnlog/LiveRecorder.h"
#include "apps/tarnlog/RecordPicture.h"
#include "apps/tarnlog/SignalWatch.h"
#include "apps/tarnlog/WindowTexts.h"
#include "platform/text/Told.h"

namespace {

using namespace tarnlog;

void addPicture(CLI::App& app, CLI::Option& records, PictureOptions& picture) {
  CLI::Option* const output =
      app.add_option(
             "--picture", picture.output,
             Told::tr("Write a picture of the records (.svg or .png) and open no window; needs no display"))
          ->needs(&records)
          ->check(isA(ValueKind::File))
          ->type_name("FILE");
  const auto add = [&](const char* name, auto& value, const std::string& text, const char* type) {
    app.add_option(name, value, text)->needs(output)->type_name(type);
  };
  app.add_option("--data", picture.data, Told::tr("In the picture: only these data"))
      ->needs(output)
      ->check(isA(ValueKind::RecordDatum))
      ->type_name("[ECU/[REQUEST/]]DATA");
  add("--from", picture.from, Told::tr("In the picture: only from this time on (seconds, as in the record)"),
      "S");
  add("--till", picture.till, Told::tr("In the picture: only up to this time"), "S");
  add("--size", picture.size,
      Told::tr("Of the picture, in pixels (default: 1200x800); many graphs make it higher"), "WxH");
}

/// The exit code, when the command line itself is what ends the program.
std::optional<int> parse(int argc, char** argv, LiveOptions& options, PictureOptions& picture) {
  CLI::App app(Told::tr("Shows the data of a vehicle's control units live, records them, and shows records"),
               "tarnlog");
  useHelpFormatter(app);
  app.set_version_flag("--version", TARNLOG_VERSION,
                       Told::tr("Display program version information and exit"));
  app.add_option("--vehicle", options.vehicle,
                 Told::tr("Vehicle description (JSON), or obd2: to ask the car behind the link; without it, "
                          "the window asks"))
      ->check(isA(ValueKind::File))
      ->type_name("FILE");
  app.add_option("--config", options.config, Told::tr("Recording configuration (XML): acquire at once"))
      ->check(isA(ValueKind::File))
      ->type_name("FILE");
  app.add_option("--folder", options.folder, Told::tr("Write its files here; made when missing"))
      ->check(isA(ValueKind::Folder))
      ->type_name("DIR");
  app.add_flag("--folder-per-vehicle", options.folderPerVehicle,
               Told::tr("Write the files of each vehicle into a folder of its own there (File menu)"));
  app.add_option("--link", options.link.url,
                 Told::tr("How the vehicle is reached (default: the description's simulation)"))
      ->check(isA(ValueKind::Link))
      ->type_name("URL");
  app.add_option("--trace", options.link.trace, Told::tr("Write what goes over the link to this new file"))
      ->check(isA(ValueKind::File))
      ->type_name("FILE");
  app.add_option("--interval", options.link.intervals,
                 Told::tr("Send this request every MS milliseconds only, not in every polling cycle"))
      ->allow_extra_args(false)
      ->check(isA(ValueKind::Request))
      ->type_name("ECU/REQUEST=MS");
  app.add_option(
         "--publish", options.publish.to,
         Told::tr("Publish each answer at an MQTT broker this time (else: File menu, Publish values)"))
      ->type_name("mqtt[s]://HOST[:PORT]/TOPIC");
  app.add_option("--publish-access", options.publish.access,
                 Told::tr("What that broker asks for: a file of JSON"))
      ->check(isA(ValueKind::File))
      ->type_name("FILE");
  CLI::Option* const files =
      app.add_option(
             "FILE", options.files,
             Told::tr("Records to look at (text, XML, MDF 4), the second and third laid over the first; "
                      "a vehicle or a configuration to open"))
          ->check(isA(ValueKind::File))
          ->expected(0, 3);
  addPicture(app, *files, picture);
  app.footer(helpFooter(
      Told::tr("F1 in the window tells its keys. Signals: INT, TERM and HUP close the window, a second one "
               "leaves at once; USR1 is the event button.\n"
               "Exit codes: 0 done, 1 failed while running, 2 bad usage or bad input, 3 no display; without "
               "one there is tarn-record."),
      "  tarnlog --vehicle examples/road-car.vehicle.json \\\n"
      "      --config examples/road-car.xml --folder recordings\n"
      "  tarnlog recordings/16-11-26_19h05mn11.xml"));
  if (printCompletions(app, "--complete", argc, argv)) return kDone;
  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& asked) {
    return app.exit(asked);
  } catch (const CLI::ParseError& error) {
    std::fprintf(stderr, "tarnlog: %s\n", printableText(refusalOf(app, error, argc, argv)).c_str());
    return kBadInput;
  }
  return std::nullopt;
}

/// Scripts mail what they find on standard error: what the toolkit notices of its surroundings is not worth
/// it.
void tellOnlyToolkitFailures(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
  if (type == QtCriticalMsg || type == QtFatalMsg)
    std::fprintf(stderr, "tarnlog: %s\n", message.toUtf8().constData());
}

/// Where a failure is told in a box, nobody may sit.
int drawPicture(int argc, char** argv, const PictureOptions& picture, WindowTexts& texts) {
  try {
    qInstallMessageHandler(tellOnlyToolkitFailures);
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    texts.install();
    std::fputs(printableText(makePicture(picture)).c_str(), stderr);
    return kDone;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "tarnlog: %s\n", printableText(error.what()).c_str());
    return exitCodeAfter(error);
  }
}

int program(int argc, char** argv, WindowTexts& texts) {
  LiveOptions options;
  PictureOptions picture;
  if (const auto code = parse(argc, argv, options, picture)) return *code;
  picture.records = options.files;
  if (!picture.output.empty()) return drawPicture(argc, argv, picture, texts);
  LiveRecorder recorder(options);
  if (!displayUsable()) {
    std::fprintf(
        stderr, "tarnlog: %s\n",
        Told::tr("there is no display to show a window on; tarn-record records without one").c_str());
    return kNoDisplay;
  }
  const QApplication application(argc, argv);
  QApplication::setApplicationName("tarnlog");
  QGuiApplication::setDesktopFileName("tarnlog");  // its windows get the icon of that entry
  texts.install();
  Signals::install();
  return recorder.run();
}

/// On standard error, and in a box for those who see none.
void complain(int argc, char** argv, WindowTexts& texts, const std::exception& error) {
  std::fprintf(stderr, "tarnlog: %s\n", printableText(error.what()).c_str());
  if (!displayUsable()) return;
  const QApplication application(argc, argv);
  texts.install();
  QMessageBox box(QMessageBox::Critical, "Tarnlog", QString::fromUtf8(error.what()));
  const SignalWatch signalWatch([&] { box.reject(); }, [] {});
  box.exec();
}

}  // namespace

int main(int argc, char** argv) {
  openClosedStandardStreams();
  WindowTexts texts;
  try {
    return program(argc, argv, texts);
  } catch (const std::exception& error) {
    complain(argc, argv, texts, error);
    return exitCodeAfter(error);
  }
}
