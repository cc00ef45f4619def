#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "host/case_input.h"
#include "host/data_source.h"
#include "workbench/session/session.h"

namespace workbench {
namespace {

using testing::ElementsAre;

class HostClasses : public testing::Test {
 protected:
  HostClasses() {
    Column number;
    number.name = "gdp";
    number.label = "Gross domestic product";
    number.numbers = {1.5, -9, kSystemMissing, 4};
    number.userMissing = {-9, 4};
    Column text;
    text.name = "DATE_";
    text.kind = ColumnKind::text;
    text.level = MeasurementLevel::nominal;
    text.texts = {"Q1 1959", "Q2", "", "Q4 1959"};
    text.textWidth = 7;
    Column instant;
    instant.name = "when";
    instant.kind = ColumnKind::instant;
    instant.instants = {0, 1, 2, kMissingInstant};
    session_.dataset.columns = {number, text, instant};
    session_.dataset.rowCount = 4;
  }

  // The cases of some columns, as the procedure reads them.
  std::vector<std::vector<double>> read(const std::vector<int>& columns, bool excludeUserMissing) {
    ProcedureDataSource source;
    ACAVarValidSpecs variables(true, true, true);
    for (const int column : columns) EXPECT_TRUE(variables.AddVariable(column, false, true, excludeUserMissing, true));
    ACAInputAdapter adapter(&variables, source);
    ACAProcDataSourceIter iterator(adapter, true);
    std::vector<std::vector<double>> cases;
    while (iterator.HasMore()) {
      const MCCommon_940::Record* record = iterator.Next();
      cases.emplace_back(record->GetAll(), record->GetAll() + record->Size());
    }
    EXPECT_EQ(iterator.Next(), nullptr);
    EXPECT_TRUE(iterator.NewPass());
    EXPECT_TRUE(iterator.HasMore());
    return cases;
  }

  Session session_;
  SessionScope scope_{session_};
};

TEST_F(HostClasses, EveryCaseIsDelivered) {
  constexpr double missing = kSystemMissing;
  EXPECT_THAT(read({0}, false), ElementsAre(ElementsAre(1.5), ElementsAre(-9), ElementsAre(missing), ElementsAre(4)));
  EXPECT_THAT(read({1, 0}, true), ElementsAre(ElementsAre(missing, 1.5), ElementsAre(missing, missing),
                                              ElementsAre(missing, missing), ElementsAre(missing, missing)));
  EXPECT_THAT(read({2}, true)[0], ElementsAre(missing));
  ASSERT_EQ(session_.passes.size(), 3u);
  EXPECT_THAT(session_.passes[1].columns, ElementsAre(1, 0));
  EXPECT_FALSE(session_.passes[0].excludeUserMissing);
  EXPECT_TRUE(session_.passes[1].excludeUserMissing);
}

TEST_F(HostClasses, ColumnsThatAreNotThereAreRefused) {
  ACAVarValidSpecs variables(true, true, true);
  EXPECT_FALSE(variables.AddVariable(3, false, true, true, true));
  EXPECT_FALSE(variables.AddVariable(-1, false, true, true, true));
  ProcedureDataSource source;
  EXPECT_EQ(source.GetDataSource()->GetVariable(3), nullptr);
  EXPECT_EQ(source.GetDataSource()->GetVariable(-1), nullptr);
}

TEST_F(HostClasses, TheDictionaryIsReadOnly) {
  ProcedureDataSource source;
  VEXA_DataSource& data = *source.GetDataSource();
  EXPECT_EQ(data.ColumnCount(), 3u);
  EXPECT_EQ(data.CaseCount(), 4);
  VEXA_Variable* gdp = data.GetVariable(0);
  EXPECT_EQ(gdp->GetName(), "gdp");
  EXPECT_EQ(gdp->GetLabel(), "Gross domestic product");
  EXPECT_EQ(gdp->GetMeasurementLevel(), 3);
  EXPECT_EQ(gdp->GetType(), 0);
  EXPECT_EQ(data.GetVariable(1)->GetType(), 7);
  EXPECT_EQ(data.GetVariable(1)->GetMeasurementLevel(), 1);
  EXPECT_EQ(data.GetVariable(2)->GetType(), 0);
  EXPECT_FALSE(gdp->SetName("other"));
  EXPECT_FALSE(gdp->SetLabel("other"));
  EXPECT_EQ(data.MakeVariable(0, "new"), nullptr);
  EXPECT_EQ(session_.dataset.columns[0].name, "gdp");
}

TEST_F(HostClasses, RawCasesPadTexts) {
  ProcedureDataSource source;
  VEXA_InputCaseIterator iterator = source.GetDataSource()->GetInputCaseIterator();
  EXPECT_EQ(iterator.GetStringValue(1), "");
  std::vector<std::string> texts;
  while (iterator.NextCase()) texts.push_back(iterator.GetStringValue(1));
  EXPECT_THAT(texts, ElementsAre("Q1 1959", "Q2     ", "       ", "Q4 1959"));
  EXPECT_EQ(iterator.GetStringValue(0), "");
  EXPECT_FALSE(VEXA_InputCaseIterator().NextCase());
}

TEST_F(HostClasses, SettingsComeFromTheSession) {
  ProcedureDataSource source;
  VEXA_DataSource& data = *source.GetDataSource();
  EXPECT_FALSE(data.IsSplitFileOn());
  EXPECT_EQ(source.GetWeightVarIndex(), -1);
  session_.splitVariables = {"region"};
  session_.weightColumn = 2;
  EXPECT_TRUE(data.IsSplitFileOn());
  EXPECT_EQ(source.GetWeightVarIndex(), 2);

  session_.trends.dateVariables = {{0, 2, 0, 2011}, {2, 3, 4, kSystemMissing}};
  session_.trends.predictSet = true;
  session_.trends.predictCase = 12;
  const VEXA_TrendsInfo& trends = *data.GetTrendsInfo();
  bool high, highIsDate, low, lowIsDate;
  long highCase, lowCase;
  trends.GetPred(high, highIsDate, highCase, low, lowIsDate, lowCase);
  EXPECT_TRUE(high);
  EXPECT_FALSE(highIsDate);
  EXPECT_EQ(highCase, 12);
  EXPECT_FALSE(low);
  session_.trends.predictIsDate = true;
  trends.GetPred(high, highIsDate, highCase, low, lowIsDate, lowCase);
  EXPECT_TRUE(highIsDate);

  EXPECT_EQ(trends.GetNDateVars(), 2);
  int column, unit, periodicity;
  trends.GetDateVar(1, column, unit, periodicity);
  EXPECT_THAT((std::vector{column, unit, periodicity}), ElementsAre(2, 3, 4));
  OBS thru, from;
  trends.GetPredVar(0, thru, from);
  EXPECT_EQ(thru, 2011);
  EXPECT_EQ(from, kSystemMissing);
}

}  // namespace
}  // namespace workbench
