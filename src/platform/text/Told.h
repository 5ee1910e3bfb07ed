#pragma once

#include <fmt/format.h>

#include <functional>
#include <string>

/// Says to the program that collects texts for translators, see ./dev texts, which context a class has.
#define TARNLOG_TEXTS_OF(context)

namespace tarnlog {

/// What our programs tell people outside the screens: help of the command line, reports, refusals. The texts
/// in the code are English; a program that has them in the user's language sets a translator. What goes into
/// files or into the acquisition log is never told this way.
class Told {
  TARNLOG_TEXTS_OF(Told)
 public:
  /// The text for this English one; empty when it has none. Called from any thread.
  using Translator = std::function<std::string(const char* source)>;

  /// Once, before anything is told. Without one, and for texts that it does not know, the English is told.
  static void setTranslator(Translator translator);

  static std::string tr(const char* source);

  /// While one lives, its thread tells the English: for texts that people are told and that files have, too.
  class English {
   public:
    English();
    ~English();
    English(const English&) = delete;
    English& operator=(const English&) = delete;
  };

  /// With the places {} or {0}, {1}... filled as fmt does. A translation that cannot be filled is not used.
  template <class... Args>
  requires(sizeof...(Args) > 0) static std::string tr(const char* source, const Args&... args) {
    return filled(source, fmt::make_format_args(args...));
  }

 private:
  static std::string filled(const char* source, fmt::format_args args);
};

}  // namespace tarnlog
