// The dictionary of display texts and where it lies. Conventions: edge.h.

#pragma once

#include <memory>
#include <string>

#include "host/edge.h"

class HOST_API PathFactory {
 public:
  PathFactory(const PathFactory&) = delete;
  PathFactory& operator=(const PathFactory&) = delete;
  ~PathFactory();

  // The path finder of one kind (3: display-text dictionaries); the host's, never null.
  static PathFactory* getPathInstance(int kind);
  std::string getPath() const;

 private:
  friend struct HostAccess;
  struct State;
  explicit PathFactory(std::unique_ptr<State> state);
  std::unique_ptr<State> state_;
};

class HOST_API FacSTDictionary {
 public:
  explicit FacSTDictionary(const std::string& path);
  FacSTDictionary(const FacSTDictionary&) = delete;
  FacSTDictionary& operator=(const FacSTDictionary&) = delete;
  virtual ~FacSTDictionary();

  void SetProcedure(const std::string& procedure);
  std::string LookUp(const std::string& key) const;  // the key itself when the dictionary does not hold it

 private:
  friend struct HostAccess;
  struct State;
  std::unique_ptr<State> state_;
};
