#include <gmock/gmock.h>

#include "host/case_input.h"
#include "host/data_source.h"
#include "workbench/edge/session.h"

namespace workbench {
namespace {

using testing::ElementsAre;

constexpr double missing = kSystemMissing;

class HostClasses : public testing::Test {
 protected:
  HostClasses() {
    session_.dataset.rowCount = 4;
    session_.dataset.columns.resize(3);
    Column& number = session_.dataset.columns[0];
    number.name = "gdp";
    number.numbers = {1.5, -9, missing, 4};
    number.userMissing = {-9, 4};
    Column& text = session_.dataset.columns[1];
    text.kind = ColumnKind::text;
    text.texts = {"Q1 1959", "Q2", "", "Q4 1959"};
    text.textWidth = 7;
    Column& instant = session_.dataset.columns[2];
    instant.kind = ColumnKind::instant;
    instant.instants = {0, 1, 2, kMissingInstant};
  }

  // The cases of some columns, as the procedure reads them.
  std::vector<std::vector<double>> read(const std::vector<int>& columns, bool excludeUserMissing) {
    ACAVarValidSpecs variables(true, true, true);
    for (const int column : columns) EXPECT_TRUE(variables.AddVariable(column, false, true, excludeUserMissing, true));
    EXPECT_FALSE(variables.AddVariable(3, false, true, true, true));
    ACAInputAdapter adapter(&variables, source_);
    ACAProcDataSourceIter iterator(adapter, true);
    std::vector<std::vector<double>> cases;
    while (iterator.HasMore()) {
      const MCCommon_940::Record* record = iterator.Next();
      cases.emplace_back(record->GetAll(), record->GetAll() + record->Size());
    }
    EXPECT_EQ(iterator.Next(), nullptr);
    EXPECT_TRUE(iterator.NewPass() && iterator.HasMore());
    return cases;
  }

  Session session_;
  SessionScope scope_{session_};
  ProcedureDataSource source_;
};

TEST_F(HostClasses, EveryCaseIsDelivered) {
  session_.clock.set(StageClock::parseEnd);
  EXPECT_THAT(read({0}, false), ElementsAre(ElementsAre(1.5), ElementsAre(-9), ElementsAre(missing), ElementsAre(4)));
  EXPECT_THAT(read({1, 0}, true), ElementsAre(ElementsAre(missing, 1.5), ElementsAre(missing, missing),
                                              ElementsAre(missing, missing), ElementsAre(missing, missing)));
  EXPECT_THAT(read({2}, true)[0], ElementsAre(missing));
  ASSERT_EQ(session_.passes.size(), 3u);
  EXPECT_THAT(session_.passes[1].columns, ElementsAre(1, 0));
  EXPECT_TRUE(!session_.passes[0].excludeUserMissing && session_.passes[1].excludeUserMissing);
  EXPECT_GT(session_.clock.between(StageClock::parseEnd, StageClock::validateEnd), 0.0);
}

TEST_F(HostClasses, TheDictionaryIsReadOnly) {
  VEXA_DataSource& data = *source_.GetDataSource();
  EXPECT_EQ(data.GetVariable(3), nullptr);
  EXPECT_EQ(data.GetVariable(1)->GetType(), 7);
  EXPECT_EQ(data.GetVariable(2)->GetType(), 0);
  EXPECT_FALSE(data.GetVariable(0)->SetName("other"));
  EXPECT_EQ(data.GetVariable(0)->GetName(), "gdp");
  EXPECT_EQ(data.MakeVariable(0, "new"), nullptr);
}

TEST_F(HostClasses, RawCasesPadTexts) {
  VEXA_InputCaseIterator iterator = source_.GetDataSource()->GetInputCaseIterator();
  EXPECT_EQ(iterator.GetStringValue(1), "");
  std::vector<std::string> texts;
  while (iterator.NextCase()) texts.push_back(iterator.GetStringValue(1));
  EXPECT_THAT(texts, ElementsAre("Q1 1959", "Q2     ", "       ", "Q4 1959"));
  EXPECT_EQ(iterator.GetStringValue(0), "");
}

TEST_F(HostClasses, TheForecastTargetMayBeACase) {
  session_.trends = {.dateVariables = {}, .predictSet = true, .predictCase = 12};
  bool high, highIsDate, low, lowIsDate;
  long highCase, lowCase;
  source_.GetDataSource()->GetTrendsInfo()->GetPred(high, highIsDate, highCase, low, lowIsDate, lowCase);
  EXPECT_TRUE(high && !highIsDate && !low);
  EXPECT_EQ(highCase, 12);
}

}  // namespace
}  // namespace workbench
