// A front end of a test: it writes down what it is told.
#pragma once

#include "platform/values/Utf8.h"
#include "platform/view/TreeTableView.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace view_tests {

/// `<` rows are about to change, `>` they have, `!` take the changes.
class Listener final : public platform::TreeTableObserver {
public:
    explicit Listener(platform::TreeTableView& view) : m_view(view) { view.SetObserver(this); }
    ~Listener() override { m_view.SetObserver(nullptr); }

    void OnRowsAboutToChange() override { m_log += '<'; }
    void OnRowsChanged() override { m_log += '>'; }
    void OnChangesPending() override { m_log += '!'; }

    std::string TakeLog() { return std::exchange(m_log, {}); }

private:
    platform::TreeTableView& m_view;
    std::string m_log;
};

/// The changes in words, the rows whose values changed by their names: `rows values(a b) edit(a)`.
inline std::string Take(platform::TreeTableView& view) {
    const platform::TreeTableChanges changes = view.TakeChanges();
    std::vector<std::string> names;
    for (const platform::TreeTableRow* row : changes.valueRows)
        names.push_back(platform::ToUtf8(row->GetShownName().Str()));
    std::ranges::sort(names);
    std::string values = names.empty() ? "values" : "values(";
    for (const std::string& name : names)
        values += name + (name == names.back() ? ")" : " ");

    std::string text;
    const auto add = [&](bool changed, const std::string& what) {
        if (changed)
            text += (text.empty() ? "" : " ") + what;
    };
    add(changes.rows, "rows");
    add(changes.values, values);
    add(changes.expansion, "expansion");
    add(changes.selection, "selection");
    add(changes.columns, "columns");
    add(changes.panel, "panel");
    if (changes.editRow)
        add(true, "edit(" + platform::ToUtf8(changes.editRow->GetShownName().Str()) + ")");
    return text;
}

} // namespace view_tests
