#include "tabs/convert_panel.h"

#include "actions/convert_mesh.h"
#include "base/text.h"
#include "desk/dialogs.h"
#include "files/look_up.h"
#include "files/path.h"
#include "platform/current_folder.h"
#include "platform/start_program.h"

namespace oravin {

ConvertPanel NewConvertPanel() {
  ConvertPanel panel;
  panel.frame3DConversion.caption = "&3D model conversion (not needed to import downloaded ships):";
  panel.lbl3DSource.caption = "&Source .3ds file:";
  panel.lbl3DDest.caption = "&Destination .shp file:";
  panel.cmd3DSourceBrowse = {"Brows&e", "", true};
  panel.cmdConvert3dsToSL = {"&Convert", "Converts .3ds file to shp file - see readme", true};
  panel.cmd3d2SLReadme = {"&View 3D Readme", "", true};
  return panel;
}

void cmd3DSourceBrowse_Click(Host& host, ConvertPanel& panel, const Installation& installation) {
  std::string folder = installation.GamePath;
  const std::string file = ChooseFile(host, "", folder, "", "3ds file *.3ds|*.3ds|All Files *.*|*.*");
  if (file.empty()) return;
  panel.txt3DSource.text = file;
  panel.txt3DDest.text = ChangeExtension(file, ".shp");
}

void cmdConvert3dsToSL_Click(Host& host, ConvertPanel& panel, const Installation& installation,
                             const ImportWindow& import) {
  TrimInPlace(panel.txt3DSource.text);
  TrimInPlace(panel.txt3DDest.text);
  if (panel.txt3DSource.text.empty()) {
    Show(host, "Enter a source file name", Icon::exclamation, meshConverterTitle);
    panel.sourceTakesFocus = true;
    return;
  }
  if (panel.txt3DDest.text.empty()) {
    Show(host, "Enter a destination file name", Icon::exclamation, meshConverterTitle);
    panel.destinationTakesFocus = true;
    return;
  }
  // The conversion makes another folder the current one.
  std::string destination = platform::FromTheRoot(panel.txt3DDest.text);
  const auto code = ConvertMesh(host, installation, panel.txt3DSource.text, "", destination);
  import.txtImportFighter.text = destination;
  // Intentional: the import form does not come up over a conversion that left no model. Where nothing was made there is
  // nothing to import, and the form would only refuse it; a model that was there before is not what was asked for.
  if (code && FileExists(host.files, destination)) import.show(destination);
}

void cmd3d2SLReadme_Click(const Installation& installation) {
  platform::StartProgram("notepad " + installation.converterReadmePath());
}

}  // namespace oravin
