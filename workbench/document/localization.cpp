#include "host/localization.h"

#include <fstream>
#include <iterator>
#include <unordered_map>
#include <utility>

#include "host/json_document.h"
#include "workbench/session/session.h"

namespace {

constexpr int kDisplayTexts = 3;
// The language of the keys themselves; it needs no dictionary.
constexpr const char* kKeyLanguage = "en";

using Texts = std::unordered_map<std::string, std::string>;

void warn(const std::string& path, const std::string& reason) {
  workbench::currentSession().messages.push_back(
      {workbench::Message::Kind::warning,
       "The dictionary '" + path + "' " + reason + ". The output texts that it lacks are in English."});
}

// One JSON object, English text -> text of the language, in UTF-8.
Texts readTexts(const std::string& path) {
  Texts texts;
  std::ifstream file(path, std::ios::binary);
  if (!file) {
    warn(path, "cannot be opened");
    return texts;
  }
  const std::string content(std::istreambuf_iterator<char>(file), {});
  rapidjson::Document document;
  document.Parse<rapidjson::kParseIterativeFlag | rapidjson::kParseValidateEncodingFlag>(content.data(),
                                                                                         content.size());
  if (document.HasParseError() || !document.IsObject()) {
    warn(path, "is not a JSON object of texts");
    return texts;
  }
  for (const auto& entry : document.GetObject()) {
    if (!entry.value.IsString()) continue;
    texts.emplace(std::string(entry.name.GetString(), entry.name.GetStringLength()),
                  std::string(entry.value.GetString(), entry.value.GetStringLength()));
  }
  return texts;
}

}  // namespace

PathFactory* PathFactory::getPathInstance(int kind) {
  static PathFactory displayTexts(kDisplayTexts);
  static PathFactory nothing(0);
  return kind == kDisplayTexts ? &displayTexts : &nothing;
}

// The dictionary file of the session's language; empty when none is needed.
std::string PathFactory::getPath() const {
  const workbench::Session& session = workbench::currentSession();
  if (kind_ != kDisplayTexts || session.language == kKeyLanguage) return {};
  return (session.dictionaryFolder / (session.language + ".json")).string();
}

struct FacSTDictionary::State {
  std::string path;
  Texts texts;
  bool read = false;
};

FacSTDictionary::FacSTDictionary(const std::string& path) : state_(new State) {
  state_->path = path;
  state_->read = path.empty();
}
FacSTDictionary::~FacSTDictionary() = default;

// One file holds the texts of every procedure.
void FacSTDictionary::SetProcedure(const std::string& /*procedure*/) {}

std::string FacSTDictionary::LookUp(const std::string& key) const {
  if (!std::exchange(state_->read, true)) state_->texts = readTexts(state_->path);
  const auto found = state_->texts.find(key);
  return found == state_->texts.end() ? key : found->second;
}
