// A session with a folder for a dictionary, an output generator in it, and the document as JSON text.

#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>

#include "host/output.h"
#include "workbench/edge/session.h"

inline std::string jsonOf(const rapidjson::Value& value) {
  rapidjson::StringBuffer text;
  rapidjson::Writer<rapidjson::StringBuffer> writer(text);
  value.Accept(writer);
  return {text.GetString(), text.GetSize()};
}

class SessionTest : public testing::Test {
 protected:
  SessionTest() {
    const auto* test = testing::UnitTest::GetInstance()->current_test_info();
    session.dictionaryFolder = std::filesystem::path(testing::TempDir()) / (std::string("dictionary_") + test->name());
    std::filesystem::create_directories(session.dictionaryFolder);
  }
  ~SessionTest() override { std::filesystem::remove_all(session.dictionaryFolder); }

  void write(const std::string& content) { std::ofstream(session.dictionaryFolder / "de.json") << content; }

  workbench::Session session;
  workbench::SessionScope scope{session};
};

class DocumentTest : public SessionTest {
 protected:
  const rapidjson::Value& items() { return generator.getProcedureStatJSON()["items"]; }

  StatJSONGenerator generator{"Vector Autoregressive Models", ""};
};
