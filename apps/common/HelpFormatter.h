#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace tarnlog {

/// Help pages of 80 columns.
class HelpFormatter : public CLI::Formatter {
 public:
  HelpFormatter();

  std::string make_group(std::string group, bool positional,
                         std::vector<const CLI::Option*> options) const override;
  std::string make_option(const CLI::Option* option, bool positional) const override;
  std::string make_option_opts(const CLI::Option* option) const override;
  std::string make_option_name(const CLI::Option* option, bool positional) const override;
  std::string make_option_usage(const CLI::Option* option) const override;
  std::string make_usage(const CLI::App* app, std::string name) const override;
  std::string make_subcommands(const CLI::App* app, CLI::AppFormatMode mode) const override;
  std::string make_subcommand(const CLI::App* command) const override;
  std::string make_footer(const CLI::App* app) const override;
  std::string make_description(const CLI::App* app) const override;
};

/// What stands below the options: what is to be told, which may be empty, and an example.
std::string helpFooter(const std::string& text, const std::string& example);

/// Sets it, for the program and the commands that are added later.
void useHelpFormatter(CLI::App& app);

}  // namespace tarnlog
