#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "config/LoadReport.h"
#include "config/oTarnParameters.h"
#include "platform/base/TarnError.h"
#include "tests/support/MemoryFileSystem.h"
#include "tests/support/ScopeText.h"
#include "tests/support/SmallVehicle.h"

namespace tarnlog::test {

/// A configuration beside a small vehicle and files in memory.
class ConfigurationFixture : public testing::Test {
 protected:
  static constexpr const char* kFile = "/rec/braking.xml";

  void load(const std::string& bytes) {
    files.files[kFile] = bytes;
    parameters.RemoveAll();
    report = {};
    parameters.LoadXmlConfiguration(files, kFile, vehicle.catalogue, &report);
  }

  /// A version 2.0 file with this inside "Parameters", and these "Data" elements.
  void loadParts(const std::string& insideParameters, const std::string& datas = "") {
    load("<Tarnlog2000 Version='2.0'><Parameters>" + insideParameters + "</Parameters><Datas>" + datas +
         "</Datas></Tarnlog2000>");
  }

  std::string saved() {
    parameters.SaveXmlConfiguration(files, kFile, "tarnlog.xsl");
    return files.files[kFile];
  }

  /// What the load left out: "Engine/Status/Torque Engine/Status/Speed=", the latter for a duplicate.
  std::string dropped() const { return text(report.data); }
  std::string droppedRequests() const { return text(report.scenarioRequests); }

  std::string items() const { return scopesText(parameters, &oTarnScope::DataName); }

  /// One "Data" element: `data("1", "Engine/Status/Speed", "Graph", "caption='x'")`.
  static std::string data(const std::string& index, const std::string& path, const std::string& type = "None",
                          const std::string& settings = "") {
    const std::size_t first = path.find('/'), second = path.find('/', first + 1);
    const std::string ecu = path.substr(0, first);
    return "<Data index='" + index + "' name='" + path.substr(second + 1) + "' request='" +
           path.substr(first + 1, second - first - 1) + "'><ECU name='" + ecu + "' function='" +
           (ecu == "Engine" ? "Injection" : "ABS") + "'/><Scope type='" + type + "'><" + type + " " +
           settings + "/></Scope></Data>";
  }

  SmallVehicle vehicle;
  MemoryFileSystem files;
  LoadReport report;
  oTarnParameters parameters{MemorySettingsStore()};

 private:
  static std::string text(const std::vector<LoadReport::Dropped>& dropped) {
    std::string text;
    for (const LoadReport::Dropped& item : dropped)
      text += (text.empty() ? "" : " ") + item.ecu + "/" + item.request +
              (item.data.empty() ? "" : "/" + item.data) + (item.duplicate ? "=" : "");
    return text;
  }
};

}  // namespace tarnlog::test
