#include <gmock/gmock.h>
#include <zip.h>

#include <fstream>
#include <utility>

#include "SourceDir.h"
#include "host/odx/OdxImport.h"
#include "host/vehicle/description/DescriptionWriter.h"
#include "platform/files/SystemFileSystem.h"
#include "tests/support/FailureOf.h"
#include "tests/support/TempFolder.h"

namespace tarnlog::host {
namespace {

using test::failureOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;

const std::string kData = TARNLOG_SOURCE_DIR "/tests/data/";

/// The documents of the small car. Those that the ECU's own refers to come first.
std::vector<PdxEntry> smallCar() {
  std::vector<PdxEntry> entries;
  for (const char* const name : {"small.odx-cs", "shared.odx-d", "small.odx-d"})
    entries.push_back({name, SystemFileSystem().readAll(kData + name)});
  return entries;
}

TEST(OdxImport, TakesOverWhatCanBeReadAndSaysWhatCannot) {
  const OdxImport import = importOdx(smallCar(), "Small car");
  EXPECT_THAT(import.notes, ElementsAre());
  EXPECT_THAT(
      import.leftOut,
      ElementsAre("Engine, second series / Live data / Curve: is computed by TAB-INTP",
                  "Engine, second series / Live data / Drive / Gear: has texts for long ranges of "
                  "values, which are shown as numbers",
                  "Engine, second series / Live data / Constant: has a computation that is not linear",
                  "Engine, second series / Live data / Exact: has values of the type A_FLOAT32",
                  "Engine, second series / Live data / Part: has constraints on physical values or texts, "
                  "which are not checked",
                  "Engine, second series / Live data / Too far: stands beyond the longest message",
                  "Engine, second series / Live data / PR_Vin: is another positive response, only the first "
                  "is read",
                  "Engine, second series / Vin / Behind: stands behind data of variable length",
                  "Engine, second series / Reset: is not a service that reads data (11)",
                  "Engine, second series / Check: is a job that runs code of its own"));
  EXPECT_EQ(writeVehicleDescription(import.vehicle),
            SystemFileSystem().readAll(kData + "small.vehicle.json"));
}

TEST(OdxImport, ReadsContainersAndRefusesWhatIsNone) {
  const test::TempFolder folder;
  const std::string path = folder.path() + "/small.pdx";
  zip_t* const archive = zip_open(path.c_str(), ZIP_CREATE, nullptr);
  for (const char* const name : {"shared.odx-d", "small.odx-d"})
    zip_file_add(archive, (std::string("docs/") + name).c_str(),
                 zip_source_file(archive, (kData + name).c_str(), 0, -1), 0);
  zip_file_add(archive, "index.xml", zip_source_buffer(archive, "<x/>", 4, 0), 0);
  ASSERT_EQ(zip_close(archive), 0);
  EXPECT_EQ(importOdx(readPdx(path), "x").vehicle.ecus.size(), 1u);

  std::ofstream(folder.path() + "/broken.pdx") << "PK\3\4 and then nothing";
  EXPECT_THAT(failureOf([&] { readPdx(folder.path() + "/broken.pdx"); }),
              HasSubstr("expected a PDX container"));
  const std::pair<const char*, const char*> refusals[] = {
      {"<ODX>\n<a></b></ODX>", "a.odx-d, line 2"},
      {"<x/>", "a.odx-d: expected an ODX document (root element ODX)"},
      {"<ODX/>", "expected ECU variants with read services, found none"},
  };
  for (const auto& [document, says] : refusals)
    EXPECT_THAT(failureOf([text = document] { importOdx({{"a.odx-d", text}}, "x"); }), HasSubstr(says));
}

}  // namespace
}  // namespace tarnlog::host
