// Tables and charts as files, what a job file says of its outputs, and the report's own words.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <regex>
#include <set>

#include "document.h"
#include "program.h"
#include "tests/document/schema_check.h"

namespace {

namespace fs = std::filesystem;

using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;
using testing::StartsWith;

using Words = std::vector<std::string>;

class Exports : public testing::Test {
 protected:
  Exports() { space.example("us_macro_quarterly.csv"); }

  ProgramRun fit(const Words& more) {
    Words words = {"fit",
                   "us_macro_quarterly.csv",
                   "--endogenous",
                   "realgdp",
                   "realcons",
                   "--maxlag",
                   "2",
                   "--dates",
                   "year=year",
                   "quarter=quarter",
                   "--predict",
                   "2",
                   "--impulse-horizon",
                   "4",
                   "--replications",
                   "100",
                   "--cilevel",
                   "60"};
    words.insert(words.end(), more.begin(), more.end());
    return space.run(words);
  }

  std::set<std::string> in(const std::string& folder) const {
    std::set<std::string> names;
    if (!fs::is_directory(space.folder() + "/" + folder)) return names;
    for (const auto& entry : fs::directory_iterator(space.folder() + "/" + folder))
      names.insert(entry.path().filename().string());
    return names;
  }

  Workspace space;
};

TEST_F(Exports, EveryTableIsAFileInEachFormat) {
  const ProgramRun run = fit({"--tables", "out/tables", "--table-format", "csv", "md", "LaTeX", "tidy", "--json", "-"});
  ASSERT_EQ(run.exitCode, 0) << run.err;
  const std::set<std::string> files = in("out/tables");
  EXPECT_THAT(files, IsSupersetOf({"lag-selection.csv", "parameters-realgdp.csv", "parameters-realgdp-vardynamics.csv",
                                   "forecast-realcons.md", "orthogonal-responses-realgdp.tex", "tidy-coefficients.csv",
                                   "tidy-forecasts.csv", "tidy-responses.csv", "tidy-shares.csv", "tidy-tests.csv",
                                   "tidy-values.csv"}));
  const OutputDocument output(run.out);
  EXPECT_EQ(workbench::breach(output.record(), "varmodel-run.schema.json"), "");
  std::set<std::string> listed;
  for (const auto& file : output.record()["run"]["outputs"]["tables"].GetArray())
    listed.insert(fs::path(file.GetString()).filename().string());
  EXPECT_EQ(listed, files);
  EXPECT_THAT(space.read("out/tables/parameters-realgdp-vardynamics.csv"),
              StartsWith("Regressor,Coefficient,Std. Error,t,Sig.,60% Lower,60% Upper\r\nConstant,"));
  EXPECT_THAT(space.read("out/tables/forecast-realcons.md"), HasSubstr("\n| 2009Q4 | "));
  EXPECT_THAT(space.read("out/tables/orthogonal-responses-realgdp.tex"),
              AllOf(HasSubstr("\\label{tab:orthogonal-responses-realgdp}"), HasSubstr("\\toprule")));
  EXPECT_THAT(space.read("out/tables/tidy-responses.csv"), HasSubstr("\r\nrealcons,realgdp,orthogonal,4,"));
  EXPECT_THAT(space.read("out/tables/tidy-shares.csv"), HasSubstr("\r\nrealcons,realgdp,orthogonal,4,"));
  EXPECT_THAT(space.read("out/tables/tidy-tests.csv"), HasSubstr("\r\ngranger,,realcons,realgdp,"));

  // The numbers of the files are those of the documents, and long form does not depend on the language.
  ASSERT_EQ(fit({"--tables", "de", "--table-format", "tidy", "--lang", "de", "-q"}).exitCode, 0);
  for (const std::string name : {"coefficients", "forecasts", "responses", "shares"}) {
    const std::string english = space.read("out/tables/tidy-" + name + ".csv");
    const std::string german = space.read("de/tidy-" + name + ".csv");
    EXPECT_EQ(english.substr(0, english.find('\r')), german.substr(0, german.find('\r')));
    EXPECT_EQ(std::regex_replace(german, std::regex("Konstante"), "Constant"), english) << name;
  }
}

TEST_F(Exports, NothingIsWrittenOverWhatTheRunReadsOrWrites) {
  space.file("file", "");
  struct Case {
    Words options;
    int exitCode;
    std::string message;
  };
  const std::vector<Case> cases = {
      {{"--tables", "file"}, 2, "file is a file, and a folder is asked for. Choose another name."},
      {{"--tables", "-"}, 2, "--tables takes a folder, and - is standard output. Name a folder."},
      {{"--tables", "x", "--html", "x"}, 2, "x is not written: --html is written to it. Choose another name."},
      {{"--charts", "x", "--json", "x"}, 2, "x is not written: --json is written to it. Choose another name."},
      {{"--table-format", "csv"}, 2, "--table-format needs --tables beside it."},
      {{"--tables", "x", "--table-format", "text"},
       2,
       "there is no \"text\". Give one of: csv, md, latex, html, tidy."},
      {{"--charts", "x", "--chart-format", "pfd"}, 2, "there is no \"pfd\". Did you mean pdf?"},
      {{"--tables", "file/x"}, 4, "file/x cannot be made"},
      {{"--tables", ".", "--json", "./roots.csv"}, 4, "./roots.csv is not written: --json is written to it"},
  };
  for (const Case& one : cases) {
    Words options = one.options;
    options.emplace_back("-q");
    const ProgramRun run = fit(options);
    EXPECT_EQ(run.exitCode, one.exitCode) << run.err;
    EXPECT_THAT(run.err, HasSubstr(one.message));
    EXPECT_THAT(in("x"), IsEmpty());
  }
  EXPECT_THAT(space.read("roots.csv"), StartsWith("{")) << "the record, which could be written";
  EXPECT_THAT(in("."), Not(Contains("parameters-realgdp.csv"))) << "all tables or none";
}

TEST_F(Exports, ChartsAreDrawnAsTheReportShowsThem) {
  const auto analyze = [&](Words more) {
    const Words all = {"analyze",
                       "us_macro_quarterly.csv",
                       "--endogenous",
                       "realgdp",
                       "realcons",
                       "--lag",
                       "1",
                       "--predict",
                       "2",
                       "--bands",
                       "none"};
    more.insert(more.begin(), all.begin(), all.end());
    return space.run(more);
  };
  const ProgramRun run = analyze({"--charts", "out", "--chart-format", "svg", "pdf", "--tables", "out"});
  ASSERT_EQ(run.exitCode, 0) << run.err;
  EXPECT_THAT(in("out"), IsSupersetOf({"forecast-chart-realgdp.svg", "forecast-chart-realgdp.pdf", "roots-chart.svg",
                                       "orthogonal-responses-chart.pdf", "roots.csv"}));
  EXPECT_THAT(run.out, AllOf(HasSubstr("tables: out (files: "), HasSubstr("charts: out (files: ")));
  ASSERT_EQ(analyze({"--charts", "again", "--chart-format", "pdf", "-q"}).exitCode, 0);
  EXPECT_TRUE(space.read("again/roots-chart.pdf") == space.read("out/roots-chart.pdf"))
      << "equal charts are equal files";
  EXPECT_THAT(space.read("out/roots-chart.pdf"), Not(HasSubstr("CreationDate")));
}

TEST_F(Exports, WithoutGnuplotEverythingElseIsWritten) {
  const char* path = std::getenv("PATH");
  const std::string before = path == nullptr ? "" : path;
  setenv("PATH", space.folder().c_str(), 1);
  const ProgramRun run = fit({"--charts", "pictures", "--tables", "tables", "--json", "out.json", "-q"});
  setenv("PATH", before.c_str(), 1);
  EXPECT_EQ(run.exitCode, 0);
  EXPECT_THAT(run.err, HasSubstr("The charts are not written: gnuplot is not installed. Install it (for instance: "
                                 "apt-get install gnuplot-nox), or leave out --charts."));
  EXPECT_THAT(in("pictures"), IsEmpty());
  EXPECT_THAT(in("tables"), Contains("roots.csv"));
  EXPECT_FALSE(OutputDocument(space.read("out.json")).record()["run"]["outputs"].HasMember("charts"));
}

constexpr const char* kJob = R"(command = "VARDYNAMICS /MODEL ENDOGENOUS=realgdp realcons LAG=1 /STABILITY"
data.source = "us_macro_quarterly.csv"
)";

TEST_F(Exports, AJobNamesItsOutputsAndTheCommandLineGoesFirst) {
  fs::create_directory(space.folder() + "/work");
  space.file("work/us_macro_quarterly.csv", space.read("us_macro_quarterly.csv"));
  space.file("work/job.toml", std::string(kJob) + R"(
[output]
html = "report.html"
json = "record.json"
tables = "tables"
table_format = ["md", "tidy"]
title = "Growth & <b>more</b>"
author = "A. \"B\" C"
note = "First.\nSecond {{line}}."
)");
  ASSERT_EQ(space.run({"run", "work/job.toml", "--title", "Other", "-q"}).exitCode, 0);
  EXPECT_THAT(in("work/tables"), AllOf(Contains("roots.md"), Contains("tidy-values.csv"), Not(Contains("roots.csv"))));
  const std::string page = space.read("work/report.html");
  EXPECT_THAT(
      page, AllOf(HasSubstr("<title>Other</title>"), HasSubstr("<meta name=\"author\" content=\"A. &quot;B&quot; C\">"),
                  HasSubstr("<p class=\"procedures\"><bdi>VAR Dynamics</bdi></p>"),
                  HasSubstr("First.\nSecond &#123;&#123;line}}.")));
  ASSERT_EQ(space.run({"run", "work/job.toml", "-q", "--lang", "de"}).exitCode, 0);
  EXPECT_THAT(space.read("work/report.html"), HasSubstr("<h1><bdi>Growth &amp; &lt;b&gt;more&lt;/b&gt;</bdi></h1>"));
  const OutputDocument record(space.read("work/record.json"));
  EXPECT_EQ(workbench::breach(record.record(), "varmodel-run.schema.json"), "");
  EXPECT_STREQ(record.record()["run"]["title"].GetString(), "Growth & <b>more</b>");
  EXPECT_STREQ(record.record()["run"]["outputs"]["html"].GetString(), "work/report.html");
}

TEST_F(Exports, CheckTellsWhatAJobCannotWrite) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"output.tables = \"us_macro_quarterly.csv\"", "us_macro_quarterly.csv is not written: this run reads it"},
      {"output.table_format = \"csv\"", "'output.table_format' needs tables, a folder."},
      {"output = { tables = \"x\", table_format = [\"xls\"] }",
       "'output.table_format' must be of: csv, md, latex, html, tidy."},
      {"output = { charts = \"x\", chart_format = \"gif\" }", "'output.chart_format' must be of: svg, png, pdf."},
      {"output = { html = \"x\", json = \"x\" }", "x is not written: --html is written to it"},
      {"output.titel = \"x\"", "Did you mean title?"},
  };
  for (const auto& [key, message] : cases) {
    space.file("job.toml", kJob + key + "\n");
    const ProgramRun run = space.run({"check", "job.toml"});
    EXPECT_EQ(run.exitCode, 2) << key;
    EXPECT_THAT(run.err, HasSubstr(message));
  }
}

TEST_F(Exports, AWrittenJobNamesThemAgain) {
  ASSERT_EQ(fit({"--minlag", "2", "--write-job", "again.toml", "--html", "out/report.html", "--tables", "out",
                 "--table-format", "latex", "tidy", "--title", "It's", "--note", "a\nb", "-q"})
                .exitCode,
            0);
  EXPECT_THAT(space.read("again.toml"),
              AllOf(HasSubstr("\noutput.html = \"out/report.html\"\noutput.tables = \"out\"\n"
                              "output.table_format = [\"latex\", \"tidy\"]\noutput.title = \"It's\"\n")));
  const std::string table = space.read("out/parameters-realgdp.tex");
  const std::set<std::string> files = in("out");
  fs::remove_all(space.folder() + "/out");
  const ProgramRun run = space.run({"run", "again.toml", "-q"});
  ASSERT_EQ(run.exitCode, 0) << run.err;
  EXPECT_EQ(in("out"), files);
  EXPECT_EQ(space.read("out/parameters-realgdp.tex"), table);
  EXPECT_THAT(space.read("out/report.html"), HasSubstr("<p class=\"about\"><bdi>a\nb</bdi></p>"));
}

}  // namespace
