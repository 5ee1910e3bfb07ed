#include "apps/common/HelpFormatter.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "apps/common/WrappedText.h"
#include "platform/text/Told.h"

namespace tarnlog {

namespace {

constexpr std::size_t kWidth = 79;  // a full line of 80 would wrap in some terminals
constexpr std::size_t kNames = 26;  // columns

std::string entry(const std::string& name, const std::string& description) {
  const std::size_t used = charactersOf(name) + 2;
  std::string out = "  " + name;
  if (!description.empty())
    out += used + 2 > kNames ? "\n" + std::string(kNames, ' ') : std::string(kNames - used, ' ');
  return out + wrappedText(description, kWidth - kNames, kNames) + "\n";
}

}  // namespace

HelpFormatter::HelpFormatter() {
  label("Usage", Told::tr("Usage"));
  label("OPTIONS", Told::tr("OPTIONS"));
  label("Options", Told::tr("Options"));
  label("Positionals", Told::tr("Positionals"));
  label("SUBCOMMAND", Told::tr("SUBCOMMAND"));
  label("Subcommands", Told::tr("Subcommands"));
  label("REQUIRED", Told::tr("REQUIRED"));
  label("Needs", Told::tr("Needs"));
}

std::string HelpFormatter::make_group(std::string group, bool positional,
                                      std::vector<const CLI::Option*> options) const {
  return CLI::Formatter::make_group(get_label(std::move(group)), positional, std::move(options));
}

/// What excludes another option says so when it is given with it.
std::string HelpFormatter::make_option_opts(const CLI::Option* option) const {
  const std::string text = CLI::Formatter::make_option_opts(option);
  return text.substr(0, text.find(" Excludes:"));
}

std::string HelpFormatter::make_option(const CLI::Option* option, bool positional) const {
  const std::string behind = positional ? std::string() : make_option_opts(option);
  return entry(make_option_name(option, positional) + behind, make_option_desc(option));
}

/// Without the value that a flag stands for.
std::string HelpFormatter::make_option_name(const CLI::Option* option, bool positional) const {
  const std::string name = CLI::Formatter::make_option_name(option, positional);
  return name.substr(0, name.find('{'));
}

/// FILE, [FILE] or [FILE...].
std::string HelpFormatter::make_option_usage(const CLI::Option* option) const {
  std::string text = make_option_name(option, true);
  if (option->get_items_expected_max() > 1) text += "...";
  return option->get_required() ? text : "[" + text + "]";
}

std::string HelpFormatter::make_usage(const CLI::App* app, std::string name) const {
  return wrappedText(CLI::Formatter::make_usage(app, std::move(name)), kWidth, 4) + "\n";
}

std::string HelpFormatter::make_subcommands(const CLI::App* app, CLI::AppFormatMode /*mode*/) const {
  std::string out;
  for (const CLI::App* const command : app->get_subcommands({})) out += make_subcommand(command);
  return out.empty() ? out : "\n" + get_label("Subcommands") + ":\n" + out;
}

std::string HelpFormatter::make_subcommand(const CLI::App* command) const {
  return entry(command->get_name(), command->get_description());
}

std::string HelpFormatter::make_footer(const CLI::App* app) const {
  const std::string footer = app->get_footer();
  return footer.empty() ? footer : wrappedText(footer, kWidth) + "\n";
}

std::string HelpFormatter::make_description(const CLI::App* app) const {
  return wrappedText(app->get_description(), kWidth) + "\n";
}

std::string helpFooter(const std::string& text, const std::string& example) {
  return text + (text.empty() ? "" : "\n") + Told::tr("Example:") + "\n" + example;
}

void useHelpFormatter(CLI::App& app) {
  app.formatter(std::make_shared<HelpFormatter>());
  app.set_help_flag("-h,--help", Told::tr("Print this help message and exit"));
}

}  // namespace tarnlog
