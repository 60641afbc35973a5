#include "platform/portable/UiGtkTreeModel.h"

#include <cairo-gobject.h>
#include <utility>

namespace nesk::platform::portable {

namespace {

struct NodeModel {
    GObject parent;
    TreeNode* root;
    std::vector<cairo_surface_t*>* images;
};

struct NodeModelClass {
    GObjectClass parent;
};

NodeModel& Of(GtkTreeModel* model) {
    return *reinterpret_cast<NodeModel*>(model);
}

TreeNode* NodeIn(const GtkTreeIter* iter) {
    return static_cast<TreeNode*>(iter->user_data);
}

// Nodes never change their address, so an iterator is valid as long as its node exists.
constexpr gint Stamp = 1;

gboolean Put(GtkTreeIter* iter, TreeNode* node) {
    iter->stamp = node != nullptr ? Stamp : 0;
    iter->user_data = node;
    return gboolean{node != nullptr};
}

GtkTreeModelFlags Flags(GtkTreeModel*) {
    return GTK_TREE_MODEL_ITERS_PERSIST;
}

gint Columns(GtkTreeModel*) {
    return ColumnCount;
}

GType ColumnType(GtkTreeModel*, gint column) {
    return column == ImageColumn ? CAIRO_GOBJECT_TYPE_SURFACE : G_TYPE_STRING;
}

gboolean IterAt(GtkTreeModel* model, GtkTreeIter* iter, GtkTreePath* path) {
    gint depth = 0;
    const gint* indices = gtk_tree_path_get_indices_with_depth(path, &depth);
    TreeNode* node = depth > 0 && indices[0] == 0 ? Of(model).root : nullptr;
    for (gint level = 1; node != nullptr && level < depth; ++level) {
        const auto index = static_cast<std::size_t>(indices[level]);
        node = index < node->ChildCount() ? &node->Child(index) : nullptr;
    }
    return Put(iter, node);
}

GtkTreePath* PathAt(GtkTreeModel*, GtkTreeIter* iter) {
    return GtkNodeModel::PathOf(*NodeIn(iter));
}

// Text and detail as Pango markup; free it with g_free.
char* Markup(const TreeNode& node) {
    if (node.Detail().empty()) return g_markup_escape_text(node.Text().c_str(), -1);
    return g_markup_printf_escaped("%s   <span alpha=\"65%%\">%s</span>", node.Text().c_str(),
                                   node.Detail().c_str());
}

void Value(GtkTreeModel* model, GtkTreeIter* iter, gint column, GValue* value) {
    const TreeNode& node = *NodeIn(iter);
    g_value_init(value, ColumnType(model, column));
    if (column == TextColumn) return g_value_set_string(value, node.Text().c_str());
    if (column == MarkupColumn) return g_value_take_string(value, Markup(node));
    const std::vector<cairo_surface_t*>& images = *Of(model).images;
    const auto image = static_cast<std::size_t>(node.Image());
    g_value_set_boxed(value, image < images.size() ? images[image] : nullptr);
}

gboolean Next(GtkTreeModel*, GtkTreeIter* iter) {
    const TreeNode& node = *NodeIn(iter);
    const TreeNode* parent = node.Parent();
    const bool isLast = parent == nullptr || node.Index() + 1 >= parent->ChildCount();
    return Put(iter, isLast ? nullptr : &parent->Child(node.Index() + 1));
}

gboolean Previous(GtkTreeModel*, GtkTreeIter* iter) {
    const TreeNode& node = *NodeIn(iter);
    return Put(iter, node.Parent() == nullptr || node.Index() == 0 ? nullptr
                                                                   : &node.Parent()->Child(node.Index() - 1));
}

gboolean ChildAt(GtkTreeModel* model, GtkTreeIter* iter, GtkTreeIter* parent, gint n) {
    if (parent == nullptr) return Put(iter, n == 0 ? Of(model).root : nullptr);
    const TreeNode& node = *NodeIn(parent);
    const auto index = static_cast<std::size_t>(n);
    return Put(iter, n >= 0 && index < node.ChildCount() ? &node.Child(index) : nullptr);
}

gboolean Children(GtkTreeModel* model, GtkTreeIter* iter, GtkTreeIter* parent) {
    return ChildAt(model, iter, parent, 0);
}

gboolean HasChild(GtkTreeModel*, GtkTreeIter* iter) {
    return gboolean{NodeIn(iter)->MayHaveChildren()};
}

gint ChildCount(GtkTreeModel* model, GtkTreeIter* iter) {
    if (iter == nullptr) return Of(model).root != nullptr ? 1 : 0;
    return static_cast<gint>(NodeIn(iter)->ChildCount());
}

gboolean Parent(GtkTreeModel*, GtkTreeIter* iter, GtkTreeIter* child) {
    return Put(iter, NodeIn(child)->Parent());
}

void InitInterface(GtkTreeModelIface* interface) {
    interface->get_flags = Flags;
    interface->get_n_columns = Columns;
    interface->get_column_type = ColumnType;
    interface->get_iter = IterAt;
    interface->get_path = PathAt;
    interface->get_value = Value;
    interface->iter_next = Next;
    interface->iter_previous = Previous;
    interface->iter_children = Children;
    interface->iter_has_child = HasChild;
    interface->iter_n_children = ChildCount;
    interface->iter_nth_child = ChildAt;
    interface->iter_parent = Parent;
}

gpointer theParentClass = nullptr;

void DropImages(NodeModel& model) {
    for (cairo_surface_t* image : *model.images)
        cairo_surface_destroy(image);
    model.images->clear();
}

void Finalize(GObject* object) {
    NodeModel& model = *reinterpret_cast<NodeModel*>(object);
    DropImages(model);
    delete model.images;
    static_cast<GObjectClass*>(theParentClass)->finalize(object);
}

void InitClass(gpointer type, gpointer) {
    theParentClass = g_type_class_peek_parent(type);
    static_cast<GObjectClass*>(type)->finalize = Finalize;
}

void InitInstance(GTypeInstance* instance, gpointer) {
    NodeModel& model = *reinterpret_cast<NodeModel*>(instance);
    model.root = nullptr;
    model.images = new std::vector<cairo_surface_t*>;
}

GType ModelType() {
    static const GType type = [] {
        const GType made =
            g_type_register_static_simple(G_TYPE_OBJECT, "NeskNodeModel", sizeof(NodeModelClass), InitClass,
                                          sizeof(NodeModel), InitInstance, GTypeFlags(0));
        const GInterfaceInfo info{
            [](gpointer interface, gpointer) { InitInterface(static_cast<GtkTreeModelIface*>(interface)); },
            nullptr, nullptr};
        g_type_add_interface_static(made, GTK_TYPE_TREE_MODEL, &info);
        return made;
    }();
    return type;
}

// Calls `tell` with the path of a row.
template <typename Tell>
void WithPath(TreeNode& node, Tell tell) {
    GtkTreePath* const path = GtkNodeModel::PathOf(node);
    GtkTreeIter iter = GtkNodeModel::IterOf(node);
    tell(path, &iter);
    gtk_tree_path_free(path);
}

} // namespace

GtkNodeModel::GtkNodeModel() : m_model(static_cast<GtkTreeModel*>(g_object_new(ModelType(), nullptr))) {}

GtkNodeModel::~GtkNodeModel() {
    Of(m_model).root = nullptr;
    g_object_unref(m_model);
}

void GtkNodeModel::SetRoot(TreeNode* root) {
    Of(m_model).root = root;
}

void GtkNodeModel::SetImages(std::vector<cairo_surface_t*> images) {
    DropImages(Of(m_model));
    for (cairo_surface_t* image : images)
        cairo_surface_reference(image);
    *Of(m_model).images = std::move(images);
}

GtkTreeIter GtkNodeModel::IterOf(TreeNode& node) {
    GtkTreeIter iter{};
    Put(&iter, &node);
    return iter;
}

TreeNode* GtkNodeModel::NodeAt(GtkTreePath* path) const {
    GtkTreeIter iter{};
    return IterAt(m_model, &iter, path) != FALSE ? NodeIn(&iter) : nullptr;
}

GtkTreePath* GtkNodeModel::PathOf(const TreeNode& node) {
    std::vector<gint> indices;
    for (const TreeNode* at = &node; at != nullptr; at = at->Parent())
        indices.push_back(static_cast<gint>(at->Index()));
    std::vector<gint> path(indices.rbegin(), indices.rend());
    return gtk_tree_path_new_from_indicesv(path.data(), path.size());
}

void GtkNodeModel::RowInserted(TreeNode& node) {
    WithPath(node, [this](GtkTreePath* path, GtkTreeIter* iter) {
        gtk_tree_model_row_inserted(m_model, path, iter);
    });
    // A view looks for children of a new row only after this notification.
    if (node.MayHaveChildren()) ChildrenToggled(node);
    if (node.Parent() != nullptr && node.Parent()->ChildCount() == 1) ChildrenToggled(*node.Parent());
}

void GtkNodeModel::RowRemoved(TreeNode& parent, std::size_t index) {
    GtkTreePath* const path = PathOf(parent);
    gtk_tree_path_append_index(path, static_cast<gint>(index));
    gtk_tree_model_row_deleted(m_model, path);
    gtk_tree_path_free(path);
    if (parent.ChildCount() == 0) ChildrenToggled(parent);
}

void GtkNodeModel::RowChanged(TreeNode& node) {
    WithPath(node, [this](GtkTreePath* path, GtkTreeIter* iter) {
        gtk_tree_model_row_changed(m_model, path, iter);
    });
}

void GtkNodeModel::ChildrenToggled(TreeNode& node) {
    WithPath(node, [this](GtkTreePath* path, GtkTreeIter* iter) {
        gtk_tree_model_row_has_child_toggled(m_model, path, iter);
    });
}

} // namespace nesk::platform::portable
