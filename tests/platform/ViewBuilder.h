// Rows of a view in a few lines of a test.
#pragma once

#include "platform/view/TreeTableView.h"

#include <string>
#include <vector>

namespace view_tests {

struct Node {
    std::wstring name;
    std::vector<Node> children = {};
};

inline TreeRowPtr MakeRow(platform::TreeTableView& view, const Node& node) {
    TreeRowPtr row = view.CreateRow();
    row->SetName(SharedText(node.name), SharedText(node.name), L"name");
    for (const Node& child : node.children)
        row->AppendChild(MakeRow(view, child));
    return row;
}

inline boost::intrusive_ptr<platform::TreeTableView> MakeView(const Node& root) {
    boost::intrusive_ptr<platform::TreeTableView> view(new platform::TreeTableView);
    view->SetRootRow(MakeRow(*view, root));
    static_cast<void>(view->TakeChanges());
    return view;
}

/// The row at the end of a path of child places.
inline platform::TreeTableRow& RowAt(const platform::TreeTableView& view, const std::vector<std::size_t>& path) {
    platform::TreeTableRow* row = view.GetRoot();
    for (const std::size_t place : path)
        row = &row->GetChildRow(place);
    return *row;
}

} // namespace view_tests
