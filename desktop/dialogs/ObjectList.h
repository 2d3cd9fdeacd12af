// A list of objects by name and designation, with a field above it that narrows it, of which one
// can be chosen.
#pragma once

#include "platform/services/UserDecisions.h"

#include <QWidget>

class QTreeWidget;

namespace desktop {

class ObjectList final : public QWidget {
    Q_OBJECT

public:
    /// The objects must outlive the list.
    explicit ObjectList(const std::vector<platform::OfferedObject>& objects,
                        QWidget* parent = nullptr);

    /// Null while none is chosen.
    const platform::OfferedObject* GetChosen() const;
    /// One that is not there chooses none.
    void Choose(const UniqueMetaObjectKey& key);

signals:
    void ChosenChanged();
    /// A double click or Enter.
    void Activated();

private:
    void Narrow(const QString& text);

    const std::vector<platform::OfferedObject>& m_objects;
    QTreeWidget* m_list;
};

} // namespace desktop
