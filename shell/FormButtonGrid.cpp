#include "shell/FormButtonGrid.h"

#include "base/PreviewMessages.h"
#include "menu/MenuId.h"
#include "menu/MenuItem.h"
#include "menu/MenuItemCollection.h"
#include "platform/AccessibleName.h"
#include "shell/modStringRes.h"
#include "widgets/PictureChoice.h"
#include "widgets/UiUtilities.h"

#include <algorithm>
#include <chrono>

#include <wx/app.h>
#include <wx/dcbuffer.h>
#include <wx/graphics.h>
#include <wx/settings.h>

namespace nesk {

using modStringRes::FormatResString;

namespace {

constexpr int Margin = 8;
constexpr int ScrollStep = 8;

// The longest side of a kept picture: that of the largest button.
constexpr int PictureSide = 96;

// Short enough that a key pressed meanwhile is answered at once.
constexpr std::chrono::milliseconds Slice{5};
constexpr int PictureMilliseconds = 30;

} // namespace

FormButtonGrid::FormButtonGrid(wxWindow* parent, const char* name, const MenuEditor& editor,
                               std::shared_ptr<PictureFiles> files)
    : wxScrolledCanvas(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, wxVSCROLL | wxWANTS_CHARS, name)
    , m_editor(editor)
    , m_thumbnails(std::move(files), PictureSide) {
    SetBackgroundStyle(wxBG_STYLE_PAINT);
    // The width must not depend on the height, which depends on the width.
    ShowScrollbars(wxSHOW_SB_NEVER, wxSHOW_SB_ALWAYS);
    SetScrollRate(0, ScrollStep);
    Bind(wxEVT_PAINT, &FormButtonGrid::OnPaint, this);
    Bind(wxEVT_IDLE, &FormButtonGrid::OnIdle, this);
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        LayOut();
        event.Skip();
    });
    m_pictureTimer.Bind(wxEVT_TIMER, [](wxTimerEvent&) { wxWakeUpIdle(); });
    BindInput();
    m_drag = platform::EntryDrag::Create(*this, DragEvents());
}

FormButtonGrid::~FormButtonGrid() = default;

// --- what is shown ---

int FormButtonGrid::Count() const {
    const MenuEntry* entry = Entry();
    return entry != nullptr ? entry->ChildCount() : 0;
}

const MenuItem& FormButtonGrid::Item(int button) const {
    return Entry()->Children()->Item(button + 1);
}

// The index of the button of an entry. -1 if the entry has no button.
int FormButtonGrid::IndexOf(const std::string& id) const {
    if (m_id.empty() || MenuId::OfParent(id) != m_id) return -1;
    const auto* item = dynamic_cast<const MenuItem*>(m_editor.Find(id));
    return item != nullptr ? item->ParentMenu()->Children()->PositionOf(*item) - 1 : -1;
}

int FormButtonGrid::Current() const {
    return IndexOf(m_current);
}

void FormButtonGrid::ShowEntry(const std::string& id) {
    m_id = id;
    Scroll(0, 0);
    UpdateButtons(id);
}

void FormButtonGrid::SetScreen(ScreenSize screen) {
    m_screen = screen;
    m_painter.reset();
    LayOut();
}

void FormButtonGrid::UpdateButtons(const std::string& id) {
    m_id = id;
    m_hovered.reset();
    LayOut();
    UpdateName();
}

void FormButtonGrid::ShowSelection(const EntryIds& selected, const std::string& current) {
    m_selected = {selected.begin(), selected.end()};
    if (current != m_current) {
        m_current = current;
        if (!selected.empty() && selected.size() == 1) m_anchor = current;
        EnsureVisible(Current());
        UpdateName();
    }
    Refresh();
}

// Tells screen readers the current button.
void FormButtonGrid::UpdateName() {
    const MenuEntry* entry = Entry();
    const std::string caption(entry != nullptr ? entry->Caption() : "");
    std::string name = FormatResString(Message::PreviewName, caption);
    if (const int current = Current(); current >= 0) {
        const MenuItem& item = Item(current);
        name = FormatResString(item.IsPart() ? Message::PreviewPart : Message::PreviewSubmenu, caption,
                               std::string(item.Caption()), std::to_string(current + 1),
                               std::to_string(Count()));
    }
    platform::SetAccessibleName(*this, name);
}

// --- layout ---

void FormButtonGrid::LayOut() {
    const int room = GetClientSize().x - 2 * Margin;
    // No larger than on the screen itself.
    m_grid = ButtonGrid(m_screen, std::clamp(room, 1, std::max(1, FromDIP(m_screen.width))));
    SetVirtualSize(-1, m_grid.Height(Count()) + 2 * Margin);
    m_wantsPictures = true;
    Refresh();
}

// The upper left corner of the column of pages in client coordinates.
wxPoint FormButtonGrid::Origin() const {
    const int left = (GetClientSize().x - m_grid.Page(0).width) / 2;
    return {std::max(Margin, left), Margin - GetViewStart().y * ScrollStep};
}

GridPoint FormButtonGrid::InColumn(wxPoint point) const {
    const wxPoint origin = Origin();
    return {point.x - origin.x, point.y - origin.y};
}

wxRect FormButtonGrid::ButtonRect(int button) const {
    const GridRect rect = m_grid.Button(button);
    const wxPoint origin = Origin();
    return {origin.x + rect.left, origin.y + rect.top, rect.width, rect.height};
}

std::optional<int> FormButtonGrid::ButtonAt(wxPoint point) const {
    return m_grid.ButtonAt(InColumn(point), Count());
}

// The first visible button, and the one after the last.
std::pair<int, int> FormButtonGrid::VisibleButtons() const {
    const int count = Count();
    const int top = -Origin().y;
    const int first = m_grid.PageAt(top) * m_grid.PerPage();
    const int end = (m_grid.PageAt(top + GetClientSize().y) + 1) * m_grid.PerPage();
    return {std::min(first, count), std::min(end, count)};
}

void FormButtonGrid::EnsureVisible(int button) {
    if (button < 0) return;
    const wxRect rect = ButtonRect(button);
    const int height = GetClientSize().y;
    const int from = GetViewStart().y;
    // The first row brings the title of its page into view.
    const bool isFirstRow = button % m_grid.PerPage() < m_grid.Columns();
    const int top =
        isFirstRow ? Origin().y + m_grid.Page(m_grid.PageOf(button)).top - Margin : rect.y - Margin;
    int to = from;
    if (rect.GetBottom() + Margin > height)
        to = from + (rect.GetBottom() + Margin - height + ScrollStep - 1) / ScrollStep;
    if (top - (to - from) * ScrollStep < 0) to = from + (top - ScrollStep + 1) / ScrollStep;
    if (to != from) Scroll(0, std::max(0, to));
}

// --- pictures ---

UiThumbnails::State FormButtonGrid::PictureState(int button) const {
    return m_thumbnails.StateOf(std::string(Item(button).Graphic()));
}

void FormButtonGrid::WantPictures() {
    m_wantsPictures = false;
    m_wanted = VisibleButtons();
    const auto [first, end] = m_wanted;
    std::vector<std::string> paths;
    // The next page is read ahead.
    const int ahead = std::min(end + m_grid.PerPage(), Count());
    for (int button = first; button < ahead; ++button) {
        std::string path(Item(button).Graphic());
        if (PictureChoice::IsPictureName(path)) paths.push_back(std::move(path));
    }
    m_thumbnails.Want(std::move(paths));
}

void FormButtonGrid::OnIdle(wxIdleEvent& event) {
    event.Skip();
    if (!IsShownOnScreen()) return;
    if (m_wantsPictures || m_wanted != VisibleButtons()) WantPictures();
    m_thumbnails.onFileChanged = on.fileChanged;
    if (m_thumbnails.Work(Slice)) Refresh();
    if (m_thumbnails.IsBusy()) m_pictureTimer.StartOnce(PictureMilliseconds);
}

void FormButtonGrid::CheckFiles() {
    if (IsShownOnScreen()) m_thumbnails.CheckFiles();
    wxWakeUpIdle();
}

// --- painting ---

void FormButtonGrid::OnPaint(wxPaintEvent&) {
    wxAutoBufferedPaintDC dc(this);
    dc.SetBackground(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE));
    dc.Clear();
    if (Entry() == nullptr) return;
    if (!m_painter) m_painter = std::make_unique<UiButtonPainter>(m_screen, GetFont().GetFaceName());
    const std::unique_ptr<wxGraphicsContext> gc(wxGraphicsContext::CreateFromUnknownDC(dc));
    if (!gc) return;
    const wxPoint origin = Origin();
    gc->Translate(origin.x, origin.y);
    wxRect area = GetUpdateRegion().GetBox();
    area.Offset(-origin);
    DrawButtons(*gc, area);
}

// @param area  what has to be drawn, in the column of pages
void FormButtonGrid::DrawButtons(wxGraphicsContext& gc, const wxRect& area) {
    const MenuEntry& entry = *Entry();
    const int count = Count();
    const int pages = m_grid.Pages(count);
    const std::string title(entry.Caption());
    const int lastPage = std::min(m_grid.PageAt(std::max(0, area.GetBottom())), pages - 1);
    for (int page = m_grid.PageAt(area.y); page <= lastPage; ++page)
        m_painter->DrawPage(gc, m_grid, page, title,
                            pages > 1 ? FormatResString(Message::PreviewPage, page + 1, pages) : "");
    if (count == 0) m_painter->DrawHint(gc, m_grid, 0, modStringRes::LoadResString(Message::PreviewEmpty));
    const auto [first, end] = VisibleButtons();
    const int current = HasFocus() ? Current() : -1;
    for (int button = first; button < end; ++button) {
        const GridRect place = m_grid.Button(button);
        if (place.Bottom() + Margin < area.y || place.top - Margin > area.GetBottom()) continue;
        const MenuItem& item = Item(button);
        const std::string path(item.Graphic());
        const std::string id = item.ID();
        const GridRect box = m_grid.Picture(place);
        const wxBitmap& picture = m_thumbnails.Bitmap(
            path, wxSize(std::max(1, box.width), std::max(1, box.height)), m_grid.Scale());
        UiButtonPainter::Look look;
        look.caption = item.Caption();
        look.picture = picture.IsOk() ? &picture : nullptr;
        look.isMissing = !path.empty() && m_thumbnails.StateOf(path) == UiThumbnails::State::Missing;
        look.isSubmenu = !item.IsPart();
        look.isSelected = m_selected.contains(id);
        look.isCurrent = button == current;
        look.isMarked = on.isMarked && on.isMarked(id);
        m_painter->DrawButton(gc, m_grid, place, look);
    }
    if (!m_marked.id.empty()) UiButtonPainter::DrawMark(gc, MarkRect(), m_mark.into);
}

} // namespace nesk
