#include "stage.h"

#include "platform/converter.h"

namespace oravin::test {

ConvertStage::ConvertStage() : folderBefore(std::filesystem::current_path()) {
  installation.GamePath = folder.Windows("game\\");
  installation.ProgramPath = folder.Windows("program\\");
  MakeFolderAt(folder.Native("game"));
  MakeFolderAt(folder.Native("program"));
  Install(STAND_IN_LIBRARY);
}

ConvertStage::~ConvertStage() { std::filesystem::current_path(folderBefore); }

std::filesystem::path ConvertStage::Library() const {
  return folder.Native(std::string("program/") + platform::converterLibrary);
}

void ConvertStage::Install(const std::filesystem::path& library) const {
  std::filesystem::copy_file(library, Library(), std::filesystem::copy_options::overwrite_existing);
}

void ConvertStage::WriteMesh(const std::string& name, int result, bool writes) const {
  WriteFileAt(Game(name), "result " + std::to_string(result) + (writes ? "\nwrites\n" : "\n"));
}

std::optional<std::int32_t> ConvertStage::Convert(const std::string& source, const std::string& options,
                                                  const std::string& destination) {
  return ConvertMesh(here.host, installation, source, options, destination);
}

std::string ConvertStage::Report(const std::string& source, const std::string& option,
                                 const std::string& destination) const {
  return "source " + Game(source).string() + "\noption " + option + "\ndestination " + Game(destination).string() +
         "\nfolder " + folder.Native("program").string() + "\n";
}

void ConvertStage::ExpectUnusable(const std::string& why) {
  ExpectRefused(std::string("The converter library ") + platform::converterLibrary + " cannot be used: " + why +
                ".\nIt is no part of Oravin and belongs into Oravin's own folder, " + installation.ProgramPath +
                "\nNothing was converted.");
}

}  // namespace oravin::test
