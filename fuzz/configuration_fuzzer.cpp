#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "config/LoadReport.h"
#include "config/StoredReferences.h"
#include "config/oTarnParameters.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/SmallVehicle.h"

/// Reads arbitrary bytes as a configuration. What is accepted must be usable: every item is one of the
/// vehicle's, references lead to Graphs, and saving and loading it again changes nothing.
namespace {

using namespace tarnlog;

constexpr const char* kFile = "/rec/configuration.xml";

void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "configuration_fuzzer: %s\n", what);
  std::abort();
}

void load(oTarnParameters& parameters, const FileSystem& files) {
  static const test::SmallVehicle vehicle;
  LoadReport report;
  parameters.RemoveAll();
  parameters.LoadXmlConfiguration(files, kFile, vehicle.catalogue, &report);
  mapStoredReferences(parameters);
  parameters.CheckAndCorrect();
}

std::string saved(const oTarnParameters& parameters, test::MemoryFileSystem& files) {
  parameters.SaveXmlConfiguration(files, kFile, "tarnlog.xsl");
  return files.files[kFile];
}

void requireSound(const oTarnParameters& parameters) {
  std::int32_t position = 0;
  for (oTarnScope& scope : parameters) {
    require(scope.index == ++position, "an index is not the position");
    require(parameters.Item(scope.DataKey) == &scope, "an item is not found by its key");
    const std::int32_t* const reference = scope.graphReference();
    // Texts and bytes that a file shows as curves cannot become Graphs; nothing is drawn for them.
    const bool graphic = scope.varType == ferrox3::kInteger || scope.varType == ferrox3::kDouble;
    if (reference == nullptr || !graphic) continue;
    const oTarnScope* const graph = parameters.Item(static_cast<std::size_t>(*reference));
    require(graph != nullptr && graph->ScopeType() == oTarnScope::kGraph, "a reference leads to no Graph");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  test::MemoryFileSystem files;
  files.files[kFile].assign(reinterpret_cast<const char*>(bytes), size);
  oTarnParameters parameters{MemorySettingsStore()};
  try {
    load(parameters, files);
  } catch (const TarnError&) {
    require(parameters.Count() == 0, "a refused file was read");
    return 0;
  }
  requireSound(parameters);
  // The first save drops characters that XML does not allow; from then on nothing may change.
  saved(parameters, files);
  load(parameters, files);
  const std::string once = saved(parameters, files);
  load(parameters, files);
  requireSound(parameters);
  require(saved(parameters, files) == once, "saving and loading changes the configuration");
  return 0;
}
