// The page of a command explains every word that the command's description gives to the host.

#include <gmock/gmock.h>

#include <fstream>
#include <regex>
#include <sstream>

#include "procedures/vardynamics/syntax/command_description.h"
#include "procedures/varmodel/syntax/command_describer.h"
#include "tests/recording/scene.h"

namespace recording {
namespace {

using testing::ContainsRegex;
using testing::HasSubstr;

// The part of the page under the heading, up to the next of its level.
std::string section(const std::string& page, const std::string& heading) {
  const std::size_t begin = page.find("\n## " + heading + "\n");
  return begin == std::string::npos ? "" : page.substr(begin, page.find("\n## ", begin + 1) - begin);
}

std::string fileText(const std::string& path) {
  std::stringstream text;
  text << std::ifstream(VARMODEL_SOURCE_DIR "/" + path).rdbuf();
  return text.str();
}

// Of the host's calls those that describe: one a subcommand, "/NAME(…)" and a line a parameter, "  NAME(…) … KEYWORD
// KEYWORD".
void expectExplained(const std::string& path, const std::vector<std::string>& calls) {
  const std::string page = fileText(path);
  static const std::regex word("\\b[A-Z]{2,}\\b");
  for (const std::string& call : calls) {
    const std::string name = call.substr(1, call.find('(') - 1);
    if (!call.starts_with('/') || name.empty()) continue;
    const std::string text = section(page, name);
    ASSERT_NE(text, "") << path << " has no section " << name;
    std::istringstream parameters(call.substr(call.find('\n') == std::string::npos ? call.size() : call.find('\n')));
    for (std::string line; std::getline(parameters, line);) {
      std::sregex_iterator found(line.begin(), line.end(), word);
      if (found == std::sregex_iterator()) continue;
      const std::string parameter = found->str();
      EXPECT_THAT(text, HasSubstr("**`" + parameter + "`**")) << path << ", " << name;
      EXPECT_THAT(text, ContainsRegex("\n- `[^`]*[ /]" + parameter + "[=`  ]"))
          << path << ", " << name << ": no example";
      for (++found; found != std::sregex_iterator(); ++found)
        EXPECT_THAT(text, HasSubstr("`" + found->str() + "`")) << path << ", " << name << ' ' << parameter;
    }
  }
}

TEST(Pages, ExplainEveryKeyword) {
  Host host;
  CommandDescriptor varmodel("VARMODEL");
  ASSERT_EQ(varmodel::VARCommandDescriber(&varmodel).describeCommand(), 0);
  expectExplained("docs/varmodel.md", host.calls);
  host.calls.clear();
  CommandDescriptor vardynamics("VARDYNAMICS");
  vardynamics::describeCommand(vardynamics, {});
  ASSERT_GE(host.calls.size(), 14u);  // the subcommands
  expectExplained("docs/vardynamics.md", host.calls);
}

}  // namespace
}  // namespace recording
