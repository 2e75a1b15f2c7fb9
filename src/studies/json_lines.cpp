#include "studies/json_lines.h"

#include <cstddef>
#include <iterator>
#include <utility>
#include <vector>

#include "quantities/refusals.h"

namespace halvorne::studies {
namespace {

using Json = nlohmann::json;

/// How far the parser has come.
struct Place {
  long line = 1;      ///< of the character that was read last
  long nextLine = 1;  ///< of the one behind it
};

/// Walks through a text and keeps the line. The parser tells of a number once it has seen the
/// character behind it; a line's end still belongs to its line.
class CountingIterator {
 public:
  using iterator_category = std::input_iterator_tag;
  using value_type = char;
  using difference_type = std::ptrdiff_t;
  using pointer = const char*;
  using reference = const char&;

  CountingIterator(const char* at, Place* place) : at_(at), place_(place) {}
  reference operator*() const { return *at_; }
  CountingIterator& operator++() {
    place_->line = place_->nextLine;
    place_->nextLine += *at_ == '\n' ? 1 : 0;
    ++at_;
    return *this;
  }
  CountingIterator operator++(int) {
    const CountingIterator before = *this;
    ++*this;
    return before;
  }
  bool operator==(const CountingIterator& other) const { return at_ == other.at_; }

 private:
  const char* at_;
  Place* place_;
};

/// Notes the line of each value of a text.
class LineNotes final : public nlohmann::json_sax<Json> {
 public:
  LineNotes(const Place& place, std::map<std::string, long>& lines)
      : place_(place), lines_(lines) {}

  bool null() override { return Value(); }
  bool boolean(bool) override { return Value(); }
  bool number_integer(number_integer_t) override { return Value(); }
  bool number_unsigned(number_unsigned_t) override { return Value(); }
  bool number_float(number_float_t, const string_t&) override { return Value(); }
  bool string(string_t&) override { return Value(); }
  bool binary(binary_t&) override { return Value(); }
  bool start_object(std::size_t) override { return Begin(false); }
  bool start_array(std::size_t) override { return Begin(true); }
  bool end_object() override { return End(); }
  bool end_array() override { return End(); }
  bool key(string_t& name) override {
    open_.back().next = MemberPath(open_.back().path, name);
    if (lines_.contains(open_.back().next)) {
      throw WrongInput(std::to_string(place_.line) + ": " + open_.back().next +
                       " stands there twice");
    }
    return true;
  }
  bool parse_error(std::size_t, const std::string&, const Json::exception& wrong) override {
    // "[json.exception.parse_error.101] parse error at line 3, column 5: syntax error ..."
    std::string text = wrong.what();
    const std::size_t colon = text.find(": ");
    throw WrongInput(std::to_string(place_.line) + ": it is no JSON: " +
                     (colon == std::string::npos ? text : text.substr(colon + 2)));
  }

 private:
  struct Open {
    std::string path;
    bool array;
    std::size_t count = 0;
    std::string next;  ///< path of the value to come in an object
  };

  std::string NextPath() {
    if (open_.empty()) {
      return {};
    }
    Open& parent = open_.back();
    return parent.array ? ElementPath(parent.path, parent.count++) : parent.next;
  }
  bool Value() {
    lines_[NextPath()] = place_.line;
    return true;
  }
  bool Begin(bool array) {
    const std::string path = NextPath();
    lines_[path] = place_.line;
    open_.push_back({path, array, 0, {}});
    return true;
  }
  bool End() {
    open_.pop_back();
    return true;
  }

  const Place& place_;
  std::map<std::string, long>& lines_;
  std::vector<Open> open_;
};

}  // namespace

JsonSource ReadJson(const std::string& text) {
  JsonSource source;
  Place place;
  LineNotes notes(place, source.lines);
  Json::sax_parse(CountingIterator(text.data(), &place),
                  CountingIterator(text.data() + text.size(), &place), &notes);
  source.root = Json::parse(text);
  return source;
}

std::string MemberPath(const std::string& path, const std::string& name) {
  return path.empty() ? name : path + "." + name;
}

std::string ElementPath(const std::string& path, std::size_t index) {
  return path + "[" + std::to_string(index) + "]";
}

}  // namespace halvorne::studies
