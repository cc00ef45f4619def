// What a query may do, and what none may.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "tests/dataset/fault.h"
#include "tests/dataset/temp_folder.h"
#include "workbench/base/errors.h"
#include "workbench/dataset/duckdb_connection.h"
#include "workbench/dataset/load.h"

namespace workbench {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class Query : public testing::Test {
 protected:
  Query() {
    std::filesystem::create_directory(job / "deep");
    data.write("other.csv", "k\n42\n");
    job.write("jobs.csv", "k\n43\n");
    job.write("deep/part 'a'.csv", "k\n44\n");
    elsewhere.write("secret.csv", "k\n45\n");
  }

  std::vector<double> first(const std::string& query) const {
    return loadDataset({file, query, job.path()}).columns.at(0).numbers;
  }
  std::string failure(const std::string& query) const {
    return faultOf<DataError>([&] { loadDataset({file, query, job.path()}); });
  }

  TempFolder data;
  TempFolder job;
  TempFolder elsewhere;
  std::filesystem::path file = data.write("a.csv", "year,b\n1960,2\n1959,1\n");
};

TEST_F(Query, ReadsTheSourceAndFilesOfItsFolders) {
  const std::string full = (data / "other.csv").string();
  const std::vector<std::pair<std::string, std::vector<double>>> honest = {
      {"FROM source ORDER BY year", {1959, 1960}},
      {"SELECT b FROM source WHERE year < 1961 ORDER BY b; -- a comment", {1, 2}},
      {"WITH old AS (SELECT * FROM source WHERE year < 1960) SELECT b FROM old", {1}},
      {"SELECT s.b FROM source s JOIN 'other.csv' o ON o.k = 40 + s.b", {2}},
      {"SELECT k FROM read_csv('other.csv', header = true) WHERE 'other.csv' = 'other' || '.csv'", {42}},
      {"/* ü */ SELECT k FROM read_csv(['other.csv', 'jobs.csv']) ORDER BY 1", {42, 43}},
      {"SELECT k FROM \"jobs.csv\"", {43}},
      {"SELECT k FROM read_csv('deep/part ''a''.csv')", {44}},
      {"SELECT max(k) FROM read_csv('o*.csv')", {42}},
      {"SELECT (SELECT k FROM '" + full + "') + range FROM range(2)", {42, 43}},
      {"FROM (PIVOT source ON year IN (1959) USING sum(b)) ORDER BY 1", {1}},
  };
  for (const auto& [query, expected] : honest) {
    EXPECT_THAT(first(query), testing::ElementsAreArray(expected)) << query;
  }
}

TEST_F(Query, ReadsAnAttachedDatabaseByTheNamesOfItsTables) {
  const auto database = data / "two.duckdb";
  DuckdbConnection(1).query("ATTACH " + sqlText(database.string()) +
                            " AS f; CREATE TABLE f.one AS SELECT 1 AS x; CREATE TABLE f.two AS SELECT 2 AS x");
  EXPECT_THAT(faultOf<DataError>([&] {
                loadDataset({database, ""});
              }),
              testing::AllOf(HasSubstr("(one, two)"), HasSubstr("SELECT * FROM \"one\"")));
  EXPECT_THAT(loadDataset({database, "SELECT * FROM \"one\""}).columns[0].numbers, ElementsAre(1));
  EXPECT_THAT(loadDataset({database, "FROM two, 'other.csv'"}).columns[1].numbers, ElementsAre(42));
}

TEST_F(Query, DoesNothingButRead) {
  const std::string there = (elsewhere / "").string();
  const std::string here = data.path().string();
  const std::string oneSelect = "Write one SELECT, such as SELECT * FROM source.";
  const std::string folders = "A query reads files only in " + here;
  const std::vector<std::pair<std::string, std::string>> attacks = {
      {"COPY (SELECT 1) TO '" + file.string() + "'; SELECT * FROM source", "2 statements. " + oneSelect},
      {"COPY (SELECT 1) TO 'new.csv'", "not a SELECT. A query only reads: write one SELECT"},
      {"ATTACH '" + here + "/new.duckdb' AS new", "not a SELECT"},
      {"EXPORT DATABASE '" + here + "/new'", "not a SELECT"},
      {"INSTALL httpfs", "not a SELECT"},
      {"LOAD httpfs", "not a SELECT"},
      {"PRAGMA enable_profiling", "not a SELECT"},
      {"PRAGMA import_database('" + there + "')", ""},
      {"SET lock_configuration = false; SELECT 1", "2 statements"},
      {"RESET enable_external_access", "not a SELECT"},
      {"CALL enable_logging(storage = 'file', storage_config = {'path': '" + here + "'})", "not a SELECT"},
      {"FROM enable_logging(storage = 'file', storage_config = {'path': '" + here + "'})", "calls enable_logging()"},
      {"SELECT (SELECT count(*) FROM ENABLE_LOGGING(storage = 'file', storage_config = {'path': '" + here + "'}))",
       "calls enable_logging()"},
      {"FROM query('FROM enable_logging(storage = ''file'', storage_config = {''path'': ''" + here + "''})')",
       "calls query(), which does more than read"},
      {"FROM json_execute_serialized_sql(json_serialize_sql('FROM enable_logging()'))", "calls json_execute"},
      {"FROM read_text('" + there + "secret.csv')", folders},
      {"FROM '" + there + "secret.csv'", folders},
      {"FROM read_csv('" + here + "/../" + elsewhere.path().filename().string() + "/secret.csv')", folders},
      {"FROM read_csv('../" + elsewhere.path().filename().string() + "/secret.csv')", folders},
      {"FROM read_blob('/proc/self/environ')", folders},
      {"FROM glob('" + there + "*')", folders},
      {"FROM read_csv('https://example.com/a.csv')", folders},
      {"SELECT write_log('x') FROM source", "calls write_log(), which does more than compute"},
      {"SELECT nextval('x') FROM source", "calls nextval()"},
      {"SELECT CURRENT_SETTING('secret_directory') FROM source", "calls current_setting()"},
      {"SELECT getenv('HOME') FROM source", "calls getenv()"},
      {"FROM duckdb_settings()", "calls duckdb_settings()"},
      {"FROM pg_catalog.pg_settings", "reads pg_settings"},
      {"FROM pragma_database_list", "reads pragma_database_list"},
      {"FROM duckdb_secrets()", "calls duckdb_secrets()"},
      {"FROM read_csv('" + here + "' || '/other.csv')", "the name of the file in read_csv() is computed"},
      {"FROM read_text(['" + here + "/other.csv', getvariable('x')])", "is computed"},
      {"FROM glob(upper('x'))", "is computed"},
      {"FROM sqlite_scan('" + here + "/x.db', 't')", "calls sqlite_scan()"},
      {"WITH x AS (DELETE FROM source RETURNING *) FROM x", "SELECT"},
      {"EXPLAIN ANALYZE COPY (SELECT 1) TO 'new.csv'", "not a SELECT"},
      {"CREATE TABLE t(i INT)", "not a SELECT"},
      {"-- nothing", "no statement. " + oneSelect},
  };
  const auto before = data.listing();
  const std::string content = contents(file);
  for (const auto& [query, text] : attacks) {
    EXPECT_THAT(failure(query), testing::AllOf(HasSubstr("query over data file " + file.string()), HasSubstr(text)))
        << query;
  }
  EXPECT_EQ(data.listing(), before);
  EXPECT_EQ(contents(file), content);
  EXPECT_THAT(elsewhere.listing(), ElementsAre("secret.csv"));
  EXPECT_THAT(first("SELECT * FROM source ORDER BY year"), ElementsAre(1959, 1960));  // what the messages advise
}

TEST_F(Query, NamesTheFilesThatItReads) {
  const std::filesystem::path other = data / "other.csv";
  const std::vector<std::pair<std::string, std::vector<std::filesystem::path>>> queries = {
      {"FROM source", {}},
      {"FROM 'other.csv'", {other}},
      {"SELECT (SELECT max(k) FROM read_csv('o*.csv')) FROM source", {other}},
      {"FROM read_csv(['other.csv', 'jobs.csv'])", {other, job / "jobs.csv"}},
      {"FROM '" + other.string() + "'", {other}},
      {"FROM \"" + (data / "other").string() + "\".csv", {other}},
      {"SUMMARIZE 'other.csv'", {other}},
      {"FROM 'nowhere.csv'", {}},
      {"not SQL", {}},
      {"COPY source TO 'other.csv'", {}},
  };
  for (const auto& [query, files] : queries) {
    const std::vector<std::filesystem::path> named = filesOfQuery({file, query, job.path()});
    EXPECT_EQ(std::set(named.begin(), named.end()), std::set(files.begin(), files.end())) << query;
  }
}

TEST_F(Query, IsOpenedOnRequestAlone) {
  DataRequest request{file,
                      "COPY (SELECT 7 AS k) TO '" + (elsewhere / "new.csv").string() + "'; FROM '" +
                          (elsewhere / "secret.csv").string() + "'",
                      job.path()};
  EXPECT_THAT(faultOf<DataError>([&] { loadDataset(request); }), HasSubstr("2 statements"));
  EXPECT_THAT(elsewhere.listing(), ElementsAre("secret.csv"));
  request.unsafe = true;
  EXPECT_THAT(loadDataset(request).columns.at(0).numbers, ElementsAre(45));
  EXPECT_EQ(contents(elsewhere / "new.csv"), "k\n7\n");
}

TEST_F(Query, ReadsFoldersOfAnyName) {
  for (const char* name : {"a*b", "a[b]", "a?b", "a,b", "a{b}", "a'b", "*"}) {
    const std::filesystem::path folder = data / name;
    std::filesystem::create_directory(folder);
    const auto inside = data.write(std::string(name) + "/in.csv", "k\n46\n");
    EXPECT_THAT(loadDataset({inside, ""}).columns.at(0).numbers, ElementsAre(46)) << name;
    EXPECT_THAT(loadDataset({inside, "SELECT i.k FROM source, 'in.csv' i"}).columns.at(0).numbers, ElementsAre(46))
        << name;
    EXPECT_THAT(loadDataset({inside, "FROM read_csv('i*.csv')"}).columns.at(0).numbers, ElementsAre(46)) << name;
  }
}

}  // namespace
}  // namespace workbench
