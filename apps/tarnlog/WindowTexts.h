#pragma once

#include <QTranslator>
#include <string>
#include <vector>

namespace tarnlog {

/// What the program shows and tells, in the user's language where there are texts in it, else in English.
class WindowTexts {
 public:
  /// In the language of the environment. From now on it is told on the command line; outlives all that tells.
  WindowTexts();
  /// The first of these languages that this folder has texts in. What cannot be read is told of on standard
  /// error.
  WindowTexts(const std::vector<std::string>& languages, const std::string& folder);
  ~WindowTexts();
  WindowTexts(const WindowTexts&) = delete;
  WindowTexts& operator=(const WindowTexts&) = delete;

  /// On the screens of this application, with the toolkit's own texts.
  void install();

  /// As in "de"; empty: English.
  const std::string& language() const { return language_; }

 private:
  void read(QTranslator& translator, const std::string& path);

  std::string language_;
  QTranslator screens_;
  QTranslator told_;  ///< what the programs without a toolkit tell, too
  QTranslator toolkit_;
};

}  // namespace tarnlog
