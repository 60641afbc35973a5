#include "platform/portable/UiGtkTreeView.h"

#include <algorithm>
#include <utility>

#include <gdk/gdkkeysyms.h>
#include <wx/bitmap.h>
#include <wx/event.h>

namespace nesk::platform {

TreeView* TreeView::Create(wxWindow* parent, const char* name, const TreeStyle& style) {
    return new portable::GtkTreeControl(parent, name, style);
}

namespace portable {

namespace {

// Owner of a GtkTreePath.
class Path {
public:
    explicit Path(const TreeNode& node) : m_path(GtkNodeModel::PathOf(node)) {}
    ~Path() { gtk_tree_path_free(m_path); }
    Path(const Path&) = delete;
    Path& operator=(const Path&) = delete;
    operator GtkTreePath*() const { return m_path; }

private:
    GtkTreePath* m_path;
};

// Space between the picture and the text of a row.
constexpr int Spacing = 4;

GtkTreeControl& Of(gpointer self) {
    return *static_cast<GtkTreeControl*>(self);
}

} // namespace

GtkTreeControl::GtkTreeControl(wxWindow* parent, const char* name, const TreeStyle& style) : m_style(style) {
    const wxSize size = style.size;
    if (!PreCreation(parent, wxDefaultPosition, size) ||
        !CreateBase(parent, wxID_ANY, wxDefaultPosition, size, 0, wxDefaultValidator, name))
        return;
    BuildWidgets(style);
    m_parent->DoAddChild(this);
    PostCreation(size);
    ConnectTree();
    ConnectLabels();
    if (style.drag) ConnectDrag();
    BindKeys();
    Bind(wxEVT_CONTEXT_MENU, [this](wxContextMenuEvent& event) { ReportContextMenu(event.GetPosition()); });
    Bind(wxEVT_SET_FOCUS, [this](wxFocusEvent& event) {
        gtk_im_context_focus_in(m_input);
        event.Skip();
    });
    Bind(wxEVT_KILL_FOCUS, [this](wxFocusEvent& event) {
        gtk_im_context_focus_out(m_input);
        event.Skip();
    });
}

GtkTreeControl::~GtkTreeControl() {
    // No handler may run while the widgets are destroyed.
    g_signal_handlers_disconnect_matched(m_widget, G_SIGNAL_MATCH_DATA, 0, 0, nullptr, nullptr, this);
    g_signal_handlers_disconnect_matched(m_tree, G_SIGNAL_MATCH_DATA, 0, 0, nullptr, nullptr, this);
    g_signal_handlers_disconnect_matched(gtk_tree_view_get_selection(m_tree), G_SIGNAL_MATCH_DATA, 0, 0,
                                         nullptr, nullptr, this);
    g_signal_handlers_disconnect_matched(gtk_scrollable_get_vadjustment(GTK_SCROLLABLE(m_tree)),
                                         G_SIGNAL_MATCH_DATA, 0, 0, nullptr, nullptr, this);
    g_signal_handlers_disconnect_matched(m_textCell, G_SIGNAL_MATCH_DATA, 0, 0, nullptr, nullptr, this);
    if (m_entry != nullptr)
        g_signal_handlers_disconnect_matched(m_entry, G_SIGNAL_MATCH_DATA, 0, 0, nullptr, nullptr, this);
    gtk_tree_view_set_model(m_tree, nullptr);
    g_object_unref(m_input);
}

void GtkTreeControl::BuildWidgets(const TreeStyle& style) {
    m_widget = gtk_scrolled_window_new(nullptr, nullptr);
    g_object_ref(m_widget);
    gtk_scrolled_window_set_shadow_type(GTK_SCROLLED_WINDOW(m_widget), GTK_SHADOW_IN);
    gtk_scrolled_window_set_policy(GTK_SCROLLED_WINDOW(m_widget), GTK_POLICY_AUTOMATIC, GTK_POLICY_AUTOMATIC);

    m_tree = GTK_TREE_VIEW(gtk_tree_view_new());
    gtk_tree_view_set_headers_visible(m_tree, FALSE);
    // TypeAhead implements the search, as on Windows.
    gtk_tree_view_set_enable_search(m_tree, FALSE);
    gtk_tree_selection_set_mode(gtk_tree_view_get_selection(m_tree),
                                style.multiple ? GTK_SELECTION_MULTIPLE : GTK_SELECTION_BROWSE);

    m_imageCell = gtk_cell_renderer_pixbuf_new();
    m_textCell = gtk_cell_renderer_text_new();
    m_column = gtk_tree_view_column_new();
    gtk_tree_view_column_pack_start(m_column, m_imageCell, FALSE);
    gtk_tree_view_column_pack_start(m_column, m_textCell, TRUE);
    gtk_tree_view_column_add_attribute(m_column, m_imageCell, "surface", ImageColumn);
    if (style.details)
        gtk_tree_view_column_add_attribute(m_column, m_textCell, "markup", MarkupColumn);
    else
        gtk_tree_view_column_add_attribute(m_column, m_textCell, "text", TextColumn);
    // Half transparent, so that the text is legible in any theme and a selected row looks selected.
    const GdkRGBA mark{1.0, 0.8, 0.0, 0.45};
    g_object_set(m_textCell, "cell-background-rgba", &mark, "cell-background-set", FALSE, nullptr);
    gtk_tree_view_column_set_cell_data_func(
        m_column, m_textCell,
        [](GtkTreeViewColumn*, GtkCellRenderer* cell, GtkTreeModel*, GtkTreeIter* iter, gpointer self) {
            const gboolean isMarked{Of(self).IsMarked(GtkNodeModel::NodeOf(*iter))};
            g_object_set(cell, "cell-background-set", isMarked, nullptr);
        },
        this, nullptr);
    gtk_tree_view_column_set_spacing(m_column, Spacing);
    // With a fixed row height GTK need not measure all rows, of which there may be 100,000. The column is as
    // wide as the widest row seen so far.
    gtk_tree_view_column_set_sizing(m_column, GTK_TREE_VIEW_COLUMN_FIXED);
    gtk_tree_view_column_set_expand(m_column, TRUE);
    gtk_tree_view_append_column(m_tree, m_column);
    gtk_tree_view_set_fixed_height_mode(m_tree, TRUE);

    gtk_container_add(GTK_CONTAINER(m_widget), GTK_WIDGET(m_tree));
    gtk_widget_show(GTK_WIDGET(m_tree));
    m_focusWidget = GTK_WIDGET(m_tree);

    m_input = gtk_im_multicontext_new();
    gtk_tree_view_set_model(m_tree, m_model.Model());
}

void GtkTreeControl::ConnectTree() {
    const auto connect = [this](const char* signal, GCallback handler) {
        g_signal_connect(m_tree, signal, handler, this);
    };
    g_signal_connect(gtk_tree_view_get_selection(m_tree), "changed",
                     G_CALLBACK(+[](GtkTreeSelection*, gpointer self) { Of(self).ReportSelection(); }), this);
    connect("row-activated",
            G_CALLBACK(+[](GtkTreeView*, GtkTreePath* path, GtkTreeViewColumn*, gpointer self) {
                if (TreeNode* node = Of(self).m_model.NodeAt(path)) Of(self).ReportActivated(*node);
            }));
    connect("test-expand-row", G_CALLBACK(+[](GtkTreeView*, GtkTreeIter* iter, GtkTreePath*, gpointer self) {
                return Of(self).OnTestExpand(iter);
            }));
    connect("row-expanded", G_CALLBACK(+[](GtkTreeView*, GtkTreeIter* iter, GtkTreePath*, gpointer self) {
                Of(self).OnExpanded(iter);
            }));
    connect("row-collapsed", G_CALLBACK(+[](GtkTreeView*, GtkTreeIter* iter, GtkTreePath*, gpointer) {
                GtkNodeModel::NodeOf(*iter).SetExpanded(false);
            }));
    connect("button-press-event", G_CALLBACK(+[](GtkWidget*, GdkEventButton* press, gpointer self) {
                return Of(self).OnButtonPress(*press);
            }));
    connect("button-release-event", G_CALLBACK(+[](GtkWidget*, GdkEventButton* release, gpointer self) {
                return Of(self).OnButtonRelease(*release);
            }));
    connect("motion-notify-event", G_CALLBACK(+[](GtkWidget*, GdkEventMotion* motion, gpointer self) {
                return Of(self).OnMotion(*motion);
            }));
    connect("size-allocate",
            G_CALLBACK(+[](GtkWidget*, GdkRectangle*, gpointer self) { Of(self).m_rowsChanged = true; }));
    g_signal_connect(gtk_scrollable_get_vadjustment(GTK_SCROLLABLE(m_tree)), "value-changed",
                     G_CALLBACK(+[](GtkAdjustment*, gpointer self) {
                         Of(self).m_rowsChanged = true;
                         if (Of(self).m_scrolling) return;
                         // The user has scrolled elsewhere.
                         Of(self).m_toShow = nullptr;
                         Of(self).m_toScroll = {};
                     }),
                     this);
    g_signal_connect(gtk_scrollable_get_vadjustment(GTK_SCROLLABLE(m_tree)), "changed",
                     G_CALLBACK(+[](GtkAdjustment*, gpointer self) { Of(self).m_heightChanged = true; }),
                     this);
    connect("realize", G_CALLBACK(+[](GtkWidget* tree, gpointer self) {
                gtk_im_context_set_client_window(Of(self).m_input, gtk_widget_get_window(tree));
            }));
    g_signal_connect(
        m_input, "commit",
        G_CALLBACK(+[](GtkIMContext*, const char* text, gpointer self) { Of(self).TypeText(text); }), this);
}

// --- labels ---

void GtkTreeControl::ConnectLabels() {
    g_signal_connect(m_textCell, "editing-started",
                     G_CALLBACK(+[](GtkCellRenderer*, GtkCellEditable* editable, const char*, gpointer self) {
                         Of(self).OnEditStarted(editable);
                     }),
                     this);
    g_signal_connect(m_textCell, "editing-canceled",
                     G_CALLBACK(+[](GtkCellRenderer*, gpointer self) { Of(self).OnEditCanceled(); }), this);
    g_signal_connect(m_textCell, "edited",
                     G_CALLBACK(+[](GtkCellRendererText*, const char*, const char* text, gpointer self) {
                         const std::string typed = text;
                         Of(self).m_entry = nullptr;
                         Of(self).EndRename(&typed);
                     }),
                     this);
}

void GtkTreeControl::EditLabel(TreeNode& node) {
    if (Edited() == &node) return;
    if (Edited() != nullptr) EndLabelEdit(true);
    EnsureVisible(node);
    BeginRename(node);
    const Path path(node);
    g_object_set(m_textCell, "editable", TRUE, nullptr);
    gtk_widget_grab_focus(GTK_WIDGET(m_tree));
    gtk_tree_view_set_cursor_on_cell(m_tree, path, m_column, m_textCell, TRUE);
    // Otherwise a click on a selected row would also begin an edit.
    g_object_set(m_textCell, "editable", FALSE, nullptr);
    if (m_entry == nullptr) EndRename(nullptr);
}

void GtkTreeControl::OnEditStarted(GtkCellEditable* editable) {
    if (!GTK_IS_ENTRY(editable)) return;
    m_entry = GTK_ENTRY(editable);
    g_signal_connect(m_entry, "changed",
                     G_CALLBACK(+[](GtkEditable*, gpointer self) { Of(self).OnEditChanged(); }), this);
    g_signal_connect(m_entry, "size-allocate",
                     G_CALLBACK(+[](GtkWidget* entry, GdkRectangle* place, gpointer self) {
                         Of(self).PlaceEntry(entry, *place);
                     }),
                     this);
}

// The toolkit places the text box over the picture of the row, because it does not know the picture's width
// yet.
void GtkTreeControl::PlaceEntry(GtkWidget* entry, const GdkRectangle& place) {
    if (Edited() == nullptr) return;
    GdkRectangle cell{};
    gtk_tree_view_get_cell_area(m_tree, Path(*Edited()), m_column, &cell);
    const int missing = cell.x + ImageSize().x + Spacing - place.x;
    if (missing <= 0 || missing >= place.width) return;
    GdkRectangle right{place.x + missing, place.y, place.width - missing, place.height};
    gtk_widget_size_allocate(entry, &right);
}

void GtkTreeControl::OnEditChanged() {
    if (m_entry == nullptr || m_correcting) return;
    const std::string typed = EditText();
    const std::string corrected = Corrected(typed);
    if (corrected == typed) return;
    m_correcting = true;
    gtk_entry_set_text(m_entry, corrected.c_str());
    gtk_editable_set_position(GTK_EDITABLE(m_entry), -1);
    m_correcting = false;
}

// The toolkit cancels an edit unless Enter ends it. Here only Escape cancels it: the typed text is kept when
// the user clicks another row or window.
void GtkTreeControl::OnEditCanceled() {
    if (m_entry == nullptr) return EndRename(nullptr);
    const std::string typed = EditText();
    m_entry = nullptr;
    guint key = 0;
    GdkEvent* const event = gtk_get_current_event();
    const bool escaped = event != nullptr && event->type == GDK_KEY_PRESS &&
                         gdk_event_get_keyval(event, &key) != FALSE && key == GDK_KEY_Escape;
    if (event != nullptr) gdk_event_free(event);
    EndRename(escaped ? nullptr : &typed);
}

void GtkTreeControl::EndLabelEdit(bool keep) {
    if (m_entry == nullptr) return;
    GtkEntry* const entry = m_entry;
    const std::string typed = EditText();
    m_entry = nullptr;
    // The end is reported below; the signals that follow must not report it again.
    g_signal_handlers_block_matched(m_textCell, G_SIGNAL_MATCH_DATA, 0, 0, nullptr, nullptr, this);
    const Quiet quiet(*this);
    g_object_set(entry, "editing-canceled", TRUE, nullptr);
    g_object_ref(entry);
    gtk_cell_editable_editing_done(GTK_CELL_EDITABLE(entry));
    gtk_cell_editable_remove_widget(GTK_CELL_EDITABLE(entry));
    g_object_unref(entry);
    g_signal_handlers_unblock_matched(m_textCell, G_SIGNAL_MATCH_DATA, 0, 0, nullptr, nullptr, this);
    EndRename(keep ? &typed : nullptr);
}

std::string GtkTreeControl::EditText() const {
    return m_entry != nullptr ? gtk_entry_get_text(m_entry) : "";
}

void GtkTreeControl::SetEditText(const std::string& text) {
    if (m_entry == nullptr) return;
    gtk_entry_set_text(m_entry, text.c_str());
    gtk_editable_set_position(GTK_EDITABLE(m_entry), -1);
}

// --- pictures, widths, styles ---

void GtkTreeControl::SetImages(const std::vector<wxBitmapBundle>& images) {
    const int scale = std::max(1, gtk_widget_get_scale_factor(GTK_WIDGET(m_tree)));
    std::vector<cairo_surface_t*> surfaces;
    for (const wxBitmapBundle& bundle : images) {
        const wxBitmap bitmap = bundle.GetBitmap(ImageSize() * scale);
        surfaces.push_back(gdk_cairo_surface_create_from_pixbuf(bitmap.GetPixbuf(), scale, nullptr));
    }
    m_model.SetImages(surfaces);
    gtk_cell_renderer_set_fixed_size(m_imageCell, ImageSize().x, ImageSize().y);
    for (cairo_surface_t* surface : surfaces)
        cairo_surface_destroy(surface);
}

void GtkTreeControl::SetAccessibleName(const std::string& name) {
    atk_object_set_name(gtk_widget_get_accessible(GTK_WIDGET(m_tree)), name.c_str());
}

// Makes the column as wide as the widest visible row.
void GtkTreeControl::WidenColumn() {
    GtkTreePath* first = nullptr;
    GtkTreePath* last = nullptr;
    if (gtk_tree_view_get_visible_range(m_tree, &first, &last) == FALSE) return;
    PangoLayout* const layout = gtk_widget_create_pango_layout(GTK_WIDGET(m_tree), nullptr);
    int widest = m_columnWidth;
    const TreeNode* const end = m_model.NodeAt(last);
    for (const TreeNode* row = m_model.NodeAt(first); row != nullptr; row = row->NextRow()) {
        GdkRectangle cell{};
        gtk_tree_view_get_cell_area(m_tree, Path(*row), m_column, &cell);
        const std::string text = row->Detail().empty() ? row->Text() : row->Text() + "   " + row->Detail();
        pango_layout_set_text(layout, text.data(), static_cast<int>(text.size()));
        int width = 0;
        pango_layout_get_pixel_size(layout, &width, nullptr);
        // Indentation, picture, text and the padding of both cells.
        widest = std::max(widest, cell.x + ImageSize().x + width + 2 * GetCharHeight());
        if (row == end) break;
    }
    g_object_unref(layout);
    gtk_tree_path_free(first);
    gtk_tree_path_free(last);
    if (widest == m_columnWidth) return;
    m_columnWidth = widest;
    gtk_tree_view_column_set_fixed_width(m_column, widest);
}

GdkWindow* GtkTreeControl::GTKGetWindow(wxArrayGdkWindows&) const {
    return gtk_tree_view_get_bin_window(m_tree);
}

void GtkTreeControl::DoApplyWidgetStyle(GtkRcStyle* style) {
    wxControl::DoApplyWidgetStyle(style);
    GTKApplyStyle(GTK_WIDGET(m_tree), style);
}

// A letter may take several keys or an input method.
int GtkTreeControl::GTKIMFilterKeypress(GdkEventKey* event) const {
    return Edited() != nullptr ? FALSE : gtk_im_context_filter_keypress(m_input, event);
}

void GtkTreeControl::OnInternalIdle() {
    wxControl::OnInternalIdle();
    if (std::exchange(m_heightChanged, false)) ScrollAgain();
    if (std::exchange(m_rowsChanged, false)) WidenColumn();
}

wxSize GtkTreeControl::DoGetBestClientSize() const {
    return FromDIP(wxSize(200, 150));
}

// --- nodes ---

void GtkTreeControl::DoReset() {
    gtk_tree_view_set_model(m_tree, nullptr);
    m_columnWidth = 0;
    m_pressed = m_toShow = nullptr;
    m_toScroll = {};
    m_model.SetRoot(Root());
    gtk_tree_view_set_model(m_tree, m_model.Model());
}

void GtkTreeControl::DoInserted(TreeNode& node) {
    m_model.RowInserted(node);
    m_rowsChanged = true;
}

void GtkTreeControl::DoChanged(TreeNode& node) {
    m_model.RowChanged(node);
    m_model.ChildrenToggled(node);
    m_rowsChanged = true;
}

gboolean GtkTreeControl::OnTestExpand(GtkTreeIter* iter) {
    return gboolean{!Fill(GtkNodeModel::NodeOf(*iter))};
}

void GtkTreeControl::OnExpanded(GtkTreeIter* iter) {
    TreeNode& node = GtkNodeModel::NodeOf(*iter);
    node.SetExpanded(true);
    m_rowsChanged = true;
    if (m_restoring) return;
    // GTK forgets the expansion below a collapsed row.
    m_restoring = true;
    RestoreExpansion(node);
    m_restoring = false;
}

void GtkTreeControl::DoExpand(TreeNode& node) {
    const bool outermost = !m_restoring;
    m_restoring = true;
    gtk_tree_view_expand_row(m_tree, Path(node), FALSE);
    if (outermost) m_restoring = false;
}

void GtkTreeControl::DoCollapse(TreeNode& node) {
    gtk_tree_view_collapse_row(m_tree, Path(node));
}

// --- selection and scrolling ---

std::vector<TreeNode*> GtkTreeControl::Selection() const {
    std::vector<TreeNode*> nodes;
    gtk_tree_selection_selected_foreach(
        gtk_tree_view_get_selection(m_tree),
        [](GtkTreeModel*, GtkTreePath*, GtkTreeIter* iter, gpointer found) {
            static_cast<std::vector<TreeNode*>*>(found)->push_back(&GtkNodeModel::NodeOf(*iter));
        },
        &nodes);
    return nodes;
}

TreeNode* GtkTreeControl::Selected() const {
    GtkTreeSelection* const selection = gtk_tree_view_get_selection(m_tree);
    GtkTreePath* path = nullptr;
    gtk_tree_view_get_cursor(m_tree, &path, nullptr);
    TreeNode* node = path != nullptr ? m_model.NodeAt(path) : nullptr;
    if (node != nullptr && gtk_tree_selection_path_is_selected(selection, path) == FALSE) node = nullptr;
    if (path != nullptr) gtk_tree_path_free(path);
    if (node != nullptr) return node;
    const std::vector<TreeNode*> nodes = Selection();
    return nodes.empty() ? nullptr : nodes.front();
}

void GtkTreeControl::DoSelect(const std::vector<TreeNode*>& nodes, TreeNode* current) {
    GtkTreeSelection* const selection = gtk_tree_view_get_selection(m_tree);
    if (current != nullptr)
        gtk_tree_view_set_cursor(m_tree, Path(*current), nullptr, FALSE);
    else
        gtk_tree_selection_unselect_all(selection);
    if (!m_style.multiple) return;
    gtk_tree_selection_unselect_all(selection);
    for (const TreeNode* node : nodes)
        gtk_tree_selection_select_path(selection, Path(*node));
}

void GtkTreeControl::DoShow(TreeNode& node) {
    m_scrolling = true;
    gtk_tree_view_scroll_to_cell(m_tree, Path(node), nullptr, FALSE, 0, 0);
    m_scrolling = false;
    m_toShow = &node;
    m_toScroll = {};
}

// The height of the tree has changed, so the scroll target may have room only now.
void GtkTreeControl::ScrollAgain() {
    if (TreeNode* node = std::exchange(m_toShow, nullptr)) {
        DoShow(*node);
        m_toShow = nullptr;
    } else if (m_toScroll.top != nullptr) {
        SetScrollPosition(m_toScroll);
        m_toScroll = {};
    }
}

void GtkTreeControl::DoRemove(TreeNode& node) {
    if (m_toShow != nullptr && m_toShow->IsWithin(node)) m_toShow = nullptr;
    if (m_toScroll.top != nullptr && m_toScroll.top->IsWithin(node)) m_toScroll = {};
    if (m_pressed != nullptr && m_pressed->IsWithin(node)) m_pressed = nullptr;
    // GTK loses the expansion state of a row when the row or its last child is removed.
    if (!node.HasRow()) return;
    if (node.IsExpanded()) {
        DoCollapse(node);
        node.SetExpanded(true);
    }
    if (TreeNode* parent = node.Parent(); parent->ChildCount() == 1 && parent->IsExpanded())
        DoCollapse(*parent);
}

TreeView::Scroll GtkTreeControl::ScrollPosition() const {
    GtkTreePath* first = nullptr;
    if (gtk_tree_view_get_visible_range(m_tree, &first, nullptr) == FALSE) return {};
    GdkRectangle row{};
    gtk_tree_view_get_background_area(m_tree, first, m_column, &row);
    const Scroll scroll{m_model.NodeAt(first), -row.y};
    gtk_tree_path_free(first);
    return scroll;
}

void GtkTreeControl::SetScrollPosition(const Scroll& scroll) {
    if (scroll.top == nullptr) return;
    GdkRectangle row{};
    gtk_tree_view_get_background_area(m_tree, Path(*scroll.top), m_column, &row);
    GtkAdjustment* const position = gtk_scrollable_get_vadjustment(GTK_SCROLLABLE(m_tree));
    m_scrolling = true;
    gtk_adjustment_set_value(position, gtk_adjustment_get_value(position) + row.y + scroll.offset);
    m_scrolling = false;
    m_toShow = nullptr;
    m_toScroll = scroll;
}

void GtkTreeControl::DoScrollRows(int rows) {
    GtkAdjustment* const position = gtk_scrollable_get_vadjustment(GTK_SCROLLABLE(m_tree));
    gtk_adjustment_set_value(position, gtk_adjustment_get_value(position) + rows * ImageSize().y);
}

wxPoint GtkTreeControl::FromWidget(int x, int y) const {
    int left = x, top = y;
    gtk_widget_translate_coordinates(GTK_WIDGET(m_tree), m_widget, x, y, &left, &top);
    return {left, top};
}

wxRect GtkTreeControl::RowRect(const TreeNode& node) const {
    GdkRectangle row{}, cell{}, shown{};
    const Path path(node);
    gtk_tree_view_get_background_area(m_tree, path, m_column, &row);
    gtk_tree_view_get_cell_area(m_tree, path, m_column, &cell);
    gtk_tree_view_get_visible_rect(m_tree, &shown);
    if (row.height == 0 || row.y + row.height <= 0 || row.y >= shown.height) return {};
    int x = 0, y = 0;
    gtk_tree_view_convert_bin_window_to_widget_coords(m_tree, cell.x, row.y, &x, &y);
    return {FromWidget(x, y), wxSize(std::min(cell.width, shown.width - cell.x), row.height)};
}

TreeNode* GtkTreeControl::RowAt(wxPoint point) const {
    int x = 0, y = 0;
    gtk_widget_translate_coordinates(m_widget, GTK_WIDGET(m_tree), point.x, point.y, &x, &y);
    gtk_tree_view_convert_widget_to_bin_window_coords(m_tree, x, y, &x, &y);
    GtkTreePath* path = nullptr;
    if (gtk_tree_view_get_path_at_pos(m_tree, std::max(x, 0), y, &path, nullptr, nullptr, nullptr) == FALSE)
        return nullptr;
    TreeNode* const node = m_model.NodeAt(path);
    gtk_tree_path_free(path);
    return node;
}

} // namespace portable
} // namespace nesk::platform
