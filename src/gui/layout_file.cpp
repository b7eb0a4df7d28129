#include "gui/layout_file.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <system_error>

#include "base/text.h"
#include "gui/picture_pane.h"
#include "gui/stats_chart_pane.h"
#include "gui/text_edge.h"
#include "gui/thumbnail_list.h"
#include "gui/top_view_pane.h"

namespace oravin::gui {

namespace {

using Json = nlohmann::ordered_json;

/// A rectangle on the screen in the window's own (logical) pixels, as one in the screen's pixels.
Json PixelsOf(const wxWindow& window, const wxRect& rectangle) {
  const double scale = window.GetContentScaleFactor();
  const auto pixels = [scale](int value) { return static_cast<int>(std::lround(value * scale)); };
  return {{"x", pixels(rectangle.x)},
          {"y", pixels(rectangle.y)},
          {"width", pixels(rectangle.width)},
          {"height", pixels(rectangle.height)}};
}

Json SizeOf(const wxWindow& window, const wxSize& size) {
  Json pixels = PixelsOf(window, size);
  return {{"width", pixels["width"]}, {"height", pixels["height"]}};
}

/// A part of a window by its client coordinates.
Json RectangleOf(const wxWindow& window, const wxRect& part) {
  return PixelsOf(window, {window.ClientToScreen(part.GetPosition()), part.GetSize()});
}

Json RectangleOf(const wxWindow& window) { return RectangleOf(window, {wxPoint(0, 0), window.GetSize()}); }

/// A row's key, by which tools find it whatever the order of the list: a letter for what the list shows, and its
/// number.
std::string KeyOf(std::string_view list, int item) {
  list.remove_prefix(list.rfind('.') + 1);
  if (list == "lstTcache") return "t" + std::to_string(item);
  const char* letter = list == "hogList" ? "h" : list == "shipStatsList" ? "v" : list == "shipWeaponsList" ? "w" : "s";
  return letter + std::to_string(item + 1);
}

Json RowsOf(const ListWindow& window, const ListView& record, const std::string& name) {
  Json rows = Json::array();
  const auto first = static_cast<std::size_t>(std::max(0L, window.GetTopItem()));
  const auto count = static_cast<std::size_t>(std::max(0, window.GetCountPerPage()));
  for (std::size_t i = first; i < record.rows.size() && i < first + count; ++i) {
    const ListRow& row = record.rows[i];
    wxRect rectangle;
    const auto item = static_cast<long>(i);
    if (item >= window.GetItemCount() || !window.GetItemRect(item, rectangle)) continue;
    Json texts = Json::array();
    for (std::size_t c = 0; c < record.columns.size(); ++c) texts.push_back(ToUtf8(ShownText(record, row, c)));
    rows.push_back({{"row", i},
                    {"key", KeyOf(name, row.item)},
                    {"texts", texts},
                    {"selected", window.GetItemState(item, wxLIST_STATE_SELECTED) != 0},
                    {"bold", row.bold},
                    {"checked", row.checked},
                    {"colour", row.colour},
                    {"rectangle", RectangleOf(window, rectangle)}});
  }
  return rows;
}

void AddList(Json& control, const ListWindow& window, const ListView& record, const std::string& name) {
  Json columns = Json::array();
  for (std::size_t i = 0; i < record.columns.size(); ++i) {
    columns.push_back(
        {{"heading", ToUtf8(record.columns[i].heading)}, {"width", window.GetColumnWidth(static_cast<int>(i))}});
  }
  control["rowCount"] = record.rows.size();
  control["columns"] = columns;
  control["sorted"] = nullptr;
  if (const int column = window.GetSortIndicator(); column >= 0) {
    control["sorted"] = {{"column", column}, {"descending", !window.IsAscendingSortIndicator()}};
  }
  control["selected"] =
      std::count_if(record.rows.begin(), record.rows.end(), [](const ListRow& row) { return row.selected; });
  control["rows"] = RowsOf(window, record, name);
}

void AddThumbnails(Json& control, const ThumbnailList& window) {
  const ListView& record = window.Record();
  const ThumbnailList::Range seen = window.RowsInSight();
  Json rows = Json::array();
  for (std::size_t i = seen.first; i < seen.end; ++i) {
    rows.push_back({{"row", i},
                    {"texts", Json::array({ToUtf8(ShownText(record, record.rows[i], 0))})},
                    {"selected", record.rows[i].selected},
                    {"picture", window.HasPicture(i)},
                    {"rectangle", RectangleOf(window, window.RowRectangle(i))}});
  }
  control["rowCount"] = record.rows.size();
  control["pictures"] = window.PicturesMade();
  control["rows"] = rows;
}

void AddPicture(Json& control, const PicturePane& window) {
  const wxRect picture = window.PictureRectangle();
  control["picture"] = picture.IsEmpty() ? Json(nullptr) : RectangleOf(window, picture);
}

Json MarkOf(const std::optional<ChartMark>& mark) { return mark ? Json(mark->value) : Json(nullptr); }

void AddChart(Json& control, const StatsChartPane& window) {
  const StatsChart& chart = window.Chart();
  control["words"] = window.Words();
  control["selected"] = ToUtf8(chart.selectedName);
  control["compared"] = ToUtf8(chart.comparedName);
  control["rows"] = Json::array();
  for (std::size_t i = 0; i < chart.rows.size() && !chart.selectedName.empty(); ++i) {
    const ChartRow& row = chart.rows.at(i);
    control["rows"].push_back({{"label", row.label},
                               {"selected", MarkOf(row.selected)},
                               {"compared", MarkOf(row.compared)},
                               {"smallest", MarkOf(row.smallest)},
                               {"middle", MarkOf(row.middle)},
                               {"largest", MarkOf(row.largest)},
                               {"rectangle", RectangleOf(window, window.RowRectangle(i))}});
  }
}

void AddTopView(Json& control, const TopViewPane& window) {
  control["words"] = window.Words();
  control["points"] = Json::array();
  for (const TopViewPoint& point : window.View().points) {
    control["points"].push_back({{"attachment", point.attachment},
                                 {"missile", point.missile},
                                 {"selected", point.selected},
                                 {"rectangle", RectangleOf(window, window.PointRectangle(point))}});
  }
}

Json ControlOf(const Reflection& reflection) {
  const wxWindow& window = *reflection.window;
  Json control = {{"name", reflection.name},
                  {"shown", window.IsShownOnScreen()},
                  {"enabled", window.IsEnabled()},
                  {"caption", window.GetLabel().utf8_string()},
                  {"tooltip", window.GetToolTipText().utf8_string()},
                  {"rectangle", RectangleOf(window)},
                  {"wants", SizeOf(window, window.GetBestSize())}};
  if (const auto* text = dynamic_cast<const wxTextCtrl*>(&window)) control["text"] = text->GetValue().utf8_string();
  if (const auto* box = dynamic_cast<const wxCheckBox*>(&window)) control["checked"] = box->GetValue();
  if (const auto* pane = dynamic_cast<const PicturePane*>(&window)) AddPicture(control, *pane);
  if (const auto* thumbnails = dynamic_cast<const ThumbnailList*>(&window)) AddThumbnails(control, *thumbnails);
  if (const auto* chart = dynamic_cast<const StatsChartPane*>(&window)) AddChart(control, *chart);
  if (const auto* view = dynamic_cast<const TopViewPane*>(&window)) AddTopView(control, *view);
  const auto* list = dynamic_cast<const ListWindow*>(&window);
  if (list != nullptr && reflection.list != nullptr) AddList(control, *list, *reflection.list, reflection.name);
  return control;
}

/// The tabs' own rectangles. The notebook only tells which tab is at a point, so they are felt out along the strip.
Json TabsOf(const wxNotebook& notebook) {
  struct Extent {
    int left = -1;
    int right = -1;
  };
  std::vector<Extent> extents(notebook.GetPageCount());
  const int strip = notebook.GetCurrentPage()->GetPosition().y;
  const int middle = strip / 2;
  for (int x = 0; x < notebook.GetSize().GetWidth(); ++x) {
    const int tab = notebook.HitTest({x, middle});
    if (tab == wxNOT_FOUND) continue;
    Extent& extent = extents[static_cast<std::size_t>(tab)];
    if (extent.left < 0) extent.left = x;
    extent.right = x;
  }
  Json tabs = Json::array();
  for (std::size_t i = 0; i < extents.size(); ++i) {
    const wxRect rectangle(extents[i].left, 0, extents[i].right - extents[i].left + 1, strip);
    tabs.push_back(
        {{"caption", notebook.GetPageText(i).utf8_string()}, {"rectangle", RectangleOf(notebook, rectangle)}});
  }
  return tabs;
}

/// The window itself, once there is one.
void AddFrame(Json& layout, const Window& window) {
  const wxFrame& frame = *window.frame;
  layout["scale"] = frame.GetContentScaleFactor();
  layout["frame"] = PixelsOf(frame, frame.GetScreenRect());
  layout["client"] = RectangleOf(frame, {wxPoint(0, 0), frame.GetClientSize()});
  layout["tab"] = window.notebook->GetPageText(static_cast<std::size_t>(window.notebook->GetSelection())).utf8_string();
  layout["tabs"] = TabsOf(*window.notebook);
}

/// The form that is open.
void AddForm(Json& layout, const wxDialog& dialog) {
  layout["formTitle"] = dialog.GetTitle().utf8_string();
  layout["formClient"] = RectangleOf(dialog, {wxPoint(0, 0), dialog.GetClientSize()});
}

/// Name of the control that has focus; empty for Windows' own text box of an edited label.
std::string FocusName() {
  const wxWindow* focus = wxWindow::FindFocus();
  if (focus == nullptr) return {};
  if (focus->GetName().empty() && dynamic_cast<const wxTextCtrl*>(focus) != nullptr) return wxTextCtrlNameStr;
  return focus->GetName().utf8_string();
}

std::string LayoutOf(const Window& window) {
  Json layout = {{"focus", FocusName()},
                 {"running", window.running},
                 {"progressPaintings", window.progressPaintings},
                 {"status", window.progressText.utf8_string()},
                 {"boxes", window.boxesShown},
                 {"box", nullptr},
                 {"form", window.form == nullptr ? std::string() : window.form->name}};
  if (window.box != nullptr) {
    layout["box"] = {{"title", ToUtf8(window.box->title)}, {"text", ToUtf8(window.box->text)}};
  }
  if (window.frame != nullptr) AddFrame(layout, window);
  layout["controls"] = Json::array();
  for (const Reflection& reflection : window.mirror.reflections) layout["controls"].push_back(ControlOf(reflection));
  if (window.form != nullptr) {
    AddForm(layout, *window.form->dialog);
    for (const Reflection& reflection : window.form->mirror.reflections) {
      layout["controls"].push_back(ControlOf(reflection));
    }
  }
  return layout.dump(1) + "\n";
}

bool WriteAndRename(const std::string& path, const std::string& text) {
  const std::string beside = path + ".new";
  std::ofstream file(beside, std::ios::binary | std::ios::trunc);
  file << text;
  file.close();
  if (!file) return false;
  std::error_code failure;
  std::filesystem::rename(beside, path, failure);
  return !failure;
}

}  // namespace

void KeepLayout(Window& window) {
  if (window.layoutFile.empty()) return;
  if (window.frame != nullptr && (!window.painted || window.frame->IsBeingDeleted())) return;
  std::string text = LayoutOf(window);
  if (text == window.layoutText) return;
  window.layoutText = std::move(text);
  if (!WriteAndRename(window.layoutFile, window.layoutText)) {
    std::fprintf(stderr, "oravin: %s could not be written\n", window.layoutFile.c_str());
  }
}

}  // namespace oravin::gui
