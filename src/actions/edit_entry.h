#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "archive/open_archive.h"
#include "desk/host.h"

/// Changes entries of an open archive's table. Each procedure first makes sure that the table is still what was read
/// from it; a message box says so if another program has changed it.
namespace oravin {

/// A sentence about an archive that cannot be written; empty where it can.
std::string ReadOnlyRemark(const OpenArchive& archive);

/// True when the archive can be written; else a message box says why not.
bool MayWriteArchive(Host& host, const OpenArchive& archive);

/// True when an entry's name can be edited. A longer one is no game's file, and an edit box would be slow to show it.
bool NameIsEditable(const HogEntry& entry);

/// An entry's fields as the user typed them.
struct EntryTexts {
  std::string name;
  std::string offset;  ///< hexadecimal
  std::string size;    ///< hexadecimal
};

/// Writes an entry's place in the table and reads it back from there.
///
/// Message boxes titled "Table Editor": a name of another length than the entry's, a changed name that cannot be stored
/// (NameCanBeStored), an offset or a size that is no hexadecimal number, a table changed by another program. Others:
/// the archive is read-only; the error trap's, titled "cmdSave_Click()".
/// @param index of the entry
/// @param texts the numbers are trimmed and put in upper case, for the form to show
/// @return whether it was written
bool EditEntry(Host& host, OpenArchive& archive, std::size_t index, EntryTexts& texts);

/// The place of an entry's data, to be given to another entry.
struct RememberedPlace {
  std::string archive;  ///< the archive's path
  std::string name;
  std::uint32_t offset = 0;
  std::uint32_t size = 0;
};

/// Asks, then gives an entry the remembered place and size, so that the one file replaces the other. Message boxes as
/// for EditEntry, the error trap's titled "pldHogPaste_Click()".
/// @return whether it was written
bool PasteEntry(Host& host, OpenArchive& archive, std::size_t index, const RememberedPlace& place);

}  // namespace oravin
