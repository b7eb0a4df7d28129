#include "archive/disguise.h"

#include "archive/archive_table.h"
#include "base/text.h"
#include "files/file.h"

namespace oravin {

namespace {

constexpr std::string_view mark = "S47";

/// The first `length` characters of the name at a table position; empty unless a zero byte follows them.
std::string NameAt(File& file, std::uint32_t fatPos, std::size_t length) {
  if (fatPos < hogTableOffset) return {};
  Bytes bytes(length + 1);
  if (GetSome(file, std::uint64_t{fatPos} + hogNameInEntry, bytes) != bytes.size() || bytes.back() != 0) return {};
  bytes.pop_back();
  return TextOf(bytes);
}

}  // namespace

std::string Disguised(const std::string& model) {
  std::string name = model;
  if (name.size() > mark.size()) name.replace(0, mark.size(), mark);
  return name;
}

bool NamesModel(File& file, std::uint32_t fatPos, const std::string& model) {
  const std::string name = UpperCase(NameAt(file, fatPos, model.size()));
  return !name.empty() && (name == UpperCase(model) || name == UpperCase(Disguised(model)));
}

bool NamesDisguised(File& file, std::uint32_t fatPos, const std::string& model) {
  const std::string name = UpperCase(NameAt(file, fatPos, model.size()));
  return !name.empty() && name != UpperCase(model) && name == UpperCase(Disguised(model));
}

bool DisguiseName(File& file, std::uint32_t fatPos, const std::string& model) {
  if (Disguised(model) == model || !NamesModel(file, fatPos, model)) return false;
  Put(file, std::uint64_t{fatPos} + hogNameInEntry, BytesOf(Disguised(model)));
  return true;
}

bool RestoreName(File& file, std::uint32_t fatPos, const std::string& model, const std::string& spelling) {
  if (spelling.size() != model.size() || !NamesModel(file, fatPos, model)) return false;
  Put(file, std::uint64_t{fatPos} + hogNameInEntry, BytesOf(spelling));
  return true;
}

}  // namespace oravin
