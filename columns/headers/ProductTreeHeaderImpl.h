// The object behind one column's head. It declares the head, with the column's caption and width,
// to the view. The control makes headers anew at each rebuild of the columns and keeps nothing else
// in them.
#pragma once

#include "columns/ColumnInfo.h"
#include "host/view/ITreeTableModel.h"

#include <string>

class IfProductTreeData;

namespace productTree {

class ProductTreeHeaderImpl {
public:
    /// `data` outlives the header.
    ProductTreeHeaderImpl(const ColumnInfo& column, IfProductTreeData* data,
                          boost::intrusive_ptr<ITreeTableModel> model);
    ProductTreeHeaderImpl(const ProductTreeHeaderImpl&) = delete;
    ProductTreeHeaderImpl& operator=(const ProductTreeHeaderImpl&) = delete;
    virtual ~ProductTreeHeaderImpl();

    /// Declares the column's head to the view. Called once, right after the header is made.
    virtual void InitEditor() = 0;

    bool IsColumn(const std::wstring& id) const { return m_column.GetId() == id; }

protected:
    ColumnInfo m_column;
    IfProductTreeData* m_data;
    boost::intrusive_ptr<ITreeTableModel> m_model;
};

} // namespace productTree
