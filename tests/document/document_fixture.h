// A session with an output generator, and the document as JSON text.

#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "host/output.h"
#include "workbench/session/session.h"

inline std::string jsonOf(const rapidjson::Value& value) {
  rapidjson::StringBuffer text;
  rapidjson::Writer<rapidjson::StringBuffer> writer(text);
  value.Accept(writer);
  return {text.GetString(), text.GetSize()};
}

class DocumentTest : public testing::Test {
 protected:
  const rapidjson::Value& items() { return generator.getProcedureStatJSON()["items"]; }

  workbench::Session session;
  workbench::SessionScope scope{session};
  StatJSONGenerator generator{"Vector Autoregressive Models", ""};
};
