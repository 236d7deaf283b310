#include "shared/options.h"

namespace programs {

OptionReader::OptionReader(int argc, char** argv, const option* options)
    : argc_(argc), argv_(argv), options_(options), letters_(":") {
  for (const option* known = options; known->name != nullptr; ++known) {
    if (known->val > 255) continue;
    letters_ += static_cast<char>(known->val);
    if (known->has_arg == required_argument) letters_ += ':';
  }
  ::opterr = 0;
}

int OptionReader::Next() {
  read_ = ::getopt_long(argc_, argv_, letters_.c_str(), options_, nullptr);
  if (read_ == ':') throw UsageError(Name(::optopt) + " needs a value");
  if (read_ != '?') return read_;
  const std::string known = Name(::optopt);
  if (!known.empty()) throw UsageError(known + " takes no value");
  const std::string unknown =
      ::optopt != 0 ? std::string("-") + static_cast<char>(::optopt) : argv_[::optind - 1];
  throw UsageError("unknown option '" + unknown + "'");
}

std::vector<std::string> OptionReader::Rest() const { return {argv_ + ::optind, argv_ + argc_}; }

void OptionReader::Refuse(const std::string& wanted) const {
  throw UsageError(Name(read_) + " takes " + wanted + ", not '" + argument() + "'");
}

std::string OptionReader::Listed(std::initializer_list<std::string_view> words) {
  std::string list;
  for (const std::string_view word : words) {
    if (!list.empty()) list += word == *(words.end() - 1) ? " or " : ", ";
    list += word;
  }
  return list;
}

std::string OptionReader::Name(int value) const {
  for (const option* known = options_; known->name != nullptr; ++known) {
    if (known->val == value) return std::string("--") + known->name;
  }
  return {};
}

}  // namespace programs
