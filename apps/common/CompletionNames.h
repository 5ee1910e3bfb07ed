#pragma once

#include <string>
#include <vector>

/// Names for what is being typed, from files. What is no file, such as a pipe, which has its content only
/// once, and what cannot be read gives none.
namespace tarnlog {

/// ECU/REQUEST/DATA of a vehicle description, each with each of these endings. Of ECUs and requests of which
/// several begin as typed, the names end behind them, as folders do.
std::vector<std::string> datumNames(const std::string& vehicle, const std::string& typed,
                                    const std::vector<std::string>& endings);
/// The same of ECU/REQUEST.
std::vector<std::string> requestNames(const std::string& vehicle, const std::string& typed,
                                      const std::string& ending);
/// Of a record: DATA where no other is called so, else ECU/REQUEST/DATA; once there is a / in what is typed,
/// that of all.
std::vector<std::string> recordedNames(const std::string& record, const std::string& typed);

}  // namespace tarnlog
