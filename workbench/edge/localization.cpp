#include "host/localization.h"

#include <stdexcept>
#include <utility>

#include "host/codes.h"
#include "workbench/base/languages.h"
#include "workbench/base/utf8_path.h"
#include "workbench/edge/session.h"

namespace {

workbench::MessageCatalogue readTexts(const std::string& path) {
  try {
    return workbench::MessageCatalogue::read(workbench::pathFromUtf8(path));
  } catch (const std::runtime_error& error) {
    workbench::currentSession().messages.push_back(
        {workbench::Message::Kind::warning,
         workbench::Notice("option.bad-dictionary-here",
                           "The dictionary '^1' ^2. The output texts that it lacks are in English.", path,
                           workbench::phrase(error.what()))});
    return {};
  }
}

}  // namespace

struct PathFactory::State {
  bool findsDisplayTexts;
};

PathFactory::PathFactory(std::unique_ptr<State> state) : state_(std::move(state)) {}
PathFactory::~PathFactory() = default;

PathFactory* PathFactory::getPathInstance(int kind) {
  static PathFactory displayTexts(std::make_unique<State>(State{true}));
  static PathFactory nothing(std::make_unique<State>(State{false}));
  return kind == codes::kDisplayTextPath ? &displayTexts : &nothing;
}

// The dictionary file of the session's language; empty when none is needed.
std::string PathFactory::getPath() const {
  if (!state_->findsDisplayTexts) return {};
  const workbench::CallInput& input = workbench::currentSession();
  return workbench::dictionaryFile(input.dictionaryFolder, input.language.code()).string();
}

struct FacSTDictionary::State {
  std::string path;
  workbench::MessageCatalogue texts;
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
  return state_->texts.lookUp(key);
}
