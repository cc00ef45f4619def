// What the recording host's files have in common: how an operation is counted and noted, and the life of an object.

#pragma once

#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "host/edge.h"
#include "tests/recording/failing_allocation.h"
#include "tests/recording/recording_host.h"

struct HostAccess {
  template <typename HostClass>
  static auto& state(const HostClass& object) {
    return *object.state_;
  }
};

namespace recording {

Host& current();

// Every operation calls this, directly or through one of the helpers below; throws when it is the call that is to fail.
void counted(const char* operation);

template <typename Argument>
void write(std::ostream& out, const Argument& argument) {
  out << argument;
}
inline void write(std::ostream& out, const std::string& text) {
  out << '"' << text << '"';
}
template <typename Element>
void write(std::ostream& out, const std::vector<Element>& list) {
  for (const Element& element : list) write(out << (&element == list.data() ? "" : " "), element);
}

template <typename... Arguments>
std::string textOf(const std::string& operation, const Arguments&... arguments) {
  const Spared spared;
  std::ostringstream out;
  out << std::boolalpha << operation;
  char separator = '(';
  ((out << std::exchange(separator, ','), write(out, arguments)), ...);
  return out.str() + (separator == '(' ? "()" : ")");
}

template <typename... Arguments>
void noted(const char* operation, const Arguments&... arguments) {
  {
    const Spared spared;
    current().calls.push_back(textOf(operation, arguments...));
  }
  counted(operation);
}

// An object of the host, from the call that makes it to the one that destroys it.
class Object {
 public:
  template <typename... Arguments>
  explicit Object(const char* name, const Arguments&... arguments) : name_(name) {
    noted(name, arguments...);
    const Spared spared;
    current().living.emplace_back(name);
  }
  Object(const Object&) = delete;
  Object& operator=(const Object&) = delete;
  ~Object();

 private:
  std::string name_;
};

// What belongs to a key, or null.
template <typename Map>
auto* found(Map& map, const std::string& key) {
  const auto place = map.find(key);
  return place == map.end() ? nullptr : &place->second;
}

}  // namespace recording

// A class without state of its own; an operation that is only counted; one that answers with a value; one that is
// noted.
#define OBJECT(Class)                       \
  struct Class::State : recording::Object { \
    using Object::Object;                   \
  };                                        \
  Class::~Class() = default;
#define COUNTS(Class, operation) ANSWERS(void, Class, operation, void())
#define ANSWERS(Result, Class, operation, value) \
  Result Class::operation {                      \
    recording::counted(#operation);              \
    return value;                                \
  }
#define NOTES(Result, Class, operation, value, ...) \
  Result Class::operation {                         \
    recording::noted(__VA_ARGS__);                  \
    return value;                                   \
  }
