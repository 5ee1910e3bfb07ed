// Small texts that people write or programs leave behind: tables of a simulation (C), the user's settings (S)
// and addresses of links (U). The first byte chooses.

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "host/link/OpenLink.h"
#include "host/vehicle/description/CsvTable.h"
#include "platform/base/TarnError.h"
#include "platform/settings/FileSettingsStore.h"
#include "tests/support/ManualLinkClock.h"
#include "tests/support/MemoryFileSystem.h"

namespace {

using namespace tarnlog;

void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "texts_fuzzer: %s\n", what);
  std::abort();
}

void readTable(const std::string& text) {
  skipOnFailure([&] {
    const host::CsvTable table(text);
    for (std::size_t i = 0; i < table.columnNames().size(); ++i)
      skipOnFailure([&] { require(!table.column(i).empty(), "a column without numbers"); });
  });
}

/// What is readable stays so when a setting is written beside it.
void readSettings(const std::string& text) {
  test::MemoryFileSystem files;
  files.files["settings"] = text;
  FileSettingsStore settings(files, "settings");
  skipOnFailure([&] {
    const auto before = settings.read("Period");
    settings.write("Format", text.substr(0, 40));
    require(settings.read("Period") == before, "a setting changed when another was written");
  });
}

void readUrl(const std::string& text) {
  test::MemoryFileSystem files;
  test::ManualLinkClock clock;
  try {
    host::openLink(text, clock, files);
  } catch (const TarnError& error) {
    require(!error.description().empty(), "a refusal says nothing");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const std::string text(reinterpret_cast<const char*>(data) + 1, size - 1);
  switch (data[0]) {
    case 'C':
      readTable(text);
      break;
    case 'S':
      readSettings(text);
      break;
    default:
      readUrl(text);
  }
  return 0;
}
