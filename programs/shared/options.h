#pragma once

// A command line read by getopt_long, with the complaints in our own words.

#include <getopt.h>

#include <charconv>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

namespace programs {

// What is wrong with the command line, in words for its user.
class UsageError : public std::runtime_error {
  using std::runtime_error::runtime_error;
};

class OptionReader {
 public:
  // `options` ends with an empty entry; the values are the short letters, above 255 where there is
  // none.
  OptionReader(int argc, char** argv, const option* options);

  // The value of the next option, or -1 at the end. Throws UsageError.
  int Next();

  // The argument of the option last read.
  const char* argument() const { return ::optarg; }

  // The arguments that are no options. After the last option only.
  std::vector<std::string> Rest() const;

  [[noreturn]] void Refuse(const std::string& wanted) const;

  // A number within bounds, read to its last character.
  template <typename Number>
  Number NumberWithin(Number least, Number most, const std::string& wanted) const {
    const std::string_view text = argument();
    Number number{};
    const char* const end = text.data() + text.size();
    const auto [stop, error] = std::from_chars(text.data(), end, number);
    if (error != std::errc() || stop != end || !(number >= least && number <= most)) Refuse(wanted);
    return number;
  }

  // One of a list of words, as its place in the list counted from `first` on.
  template <typename Choice>
  Choice ChoiceAmong(Choice first, std::initializer_list<std::string_view> words) const {
    int choice = static_cast<int>(first);
    for (const std::string_view word : words) {
      if (word == argument()) return static_cast<Choice>(choice);
      ++choice;
    }
    Refuse(Listed(words));
  }

 private:
  static std::string Listed(std::initializer_list<std::string_view> words);
  std::string Name(int value) const;

  int argc_;
  char** argv_;
  const option* options_;
  std::string letters_;
  int read_ = 0;
};

}  // namespace programs
