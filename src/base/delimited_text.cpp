#include "base/delimited_text.h"

#include <algorithm>
#include <cmath>

#include "base/file_error.h"
#include "base/number_text.h"

namespace oravin {

namespace {

[[noreturn]] void Fail(const DelimitedText& text, const std::string& why) {
  const std::string_view before = text.all.substr(0, std::min(text.at, text.all.size()));
  const auto line = 1 + std::count(before.begin(), before.end(), '\n');
  throw FileError("could not read", text.path, why + " (line " + std::to_string(line) + ")");
}

bool IsLineEnd(char c) { return c == '\r' || c == '\n'; }

void Skip(DelimitedText& text, std::string_view characters) {
  text.at = std::min(text.all.find_first_not_of(characters, text.at), text.all.size());
}

/// Skips the one separator that ends a value: a comma, or a line end of one or two characters.
void SkipSeparator(DelimitedText& text) {
  Skip(text, " \t");
  if (text.at >= text.all.size()) return;
  if (text.all[text.at] == ',') {
    ++text.at;
    return;
  }
  if (text.all[text.at] == '\r') ++text.at;
  if (text.at < text.all.size() && text.all[text.at] == '\n') ++text.at;
}

std::string TakeQuoted(DelimitedText& text) {
  const std::size_t begin = text.at + 1;
  const std::size_t end = text.all.find_first_of("\"\r\n", begin);
  if (end == std::string_view::npos || text.all[end] != '"') Fail(text, "a quote is not closed");
  text.at = end + 1;
  Skip(text, " \t");
  if (text.at < text.all.size() && text.all[text.at] != ',' && !IsLineEnd(text.all[text.at])) {
    Fail(text, "a comma is missing after a quote");
  }
  SkipSeparator(text);
  return std::string(text.all.substr(begin, end - begin));
}

/// After a comma a value follows, even if it is empty.
bool IsBehindComma(const DelimitedText& text) {
  return text.at > 0 && text.at <= text.all.size() && text.all[text.at - 1] == ',';
}

/// Returns the value that starts here, after spaces.
std::string TakeValue(DelimitedText& text) {
  Skip(text, " \t");
  if (text.at >= text.all.size()) {
    text.at = text.all.size() + 1;  // no further value follows the comma at the end of the text
    return {};
  }
  if (text.all[text.at] == '"') return TakeQuoted(text);
  const std::size_t begin = text.at;
  text.at = std::min(text.all.find_first_of(",\r\n", begin), text.all.size());
  const std::string_view value = text.all.substr(begin, text.at - begin);
  SkipSeparator(text);
  return std::string(value.substr(0, value.find_last_not_of(" \t") + 1));
}

}  // namespace

bool AtEnd(DelimitedText& text) { return text.all.find_first_not_of(" \t\r\n", text.at) == std::string_view::npos; }

std::string TakeText(DelimitedText& text) {
  // Empty lines are ignored, except directly after a comma.
  if (!IsBehindComma(text)) {
    if (AtEnd(text)) Fail(text, "it ends too early");
    Skip(text, " \t\r\n");
  }
  return TakeValue(text);
}

std::string TakeItem(DelimitedText& text) {
  const bool behindComma = IsBehindComma(text);
  Skip(text, " \t");
  if (!behindComma && text.at >= text.all.size()) Fail(text, "it ends too early");
  return TakeValue(text);
}

double TakeNumber(DelimitedText& text) {
  const std::size_t begin = text.at;
  const std::string value = TakeText(text);
  const auto number = NumberFrom(value);
  if (!number) {
    text.at = begin;
    Skip(text, " \t\r\n");
    Fail(text, "\"" + value.substr(0, 40) + "\" is no number");
  }
  return *number;
}

std::int32_t TakeWhole(DelimitedText& text, std::int32_t lowest, std::int32_t highest) {
  const std::size_t begin = text.at;
  const double number = TakeNumber(text);
  if (number < lowest || number > highest || number != std::floor(number)) {
    text.at = begin;
    Skip(text, " \t\r\n");
    Fail(text, "a whole number from " + std::to_string(lowest) + " to " + std::to_string(highest) + " is wanted");
  }
  return static_cast<std::int32_t>(number);
}

}  // namespace oravin
