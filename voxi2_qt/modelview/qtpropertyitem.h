#pragma once

#include "voxi2/kernel/vxhandle.h"
#include "voxi2/modelview/vxsimpleproperty2.h"

#include <QString>
#include <QTreeWidgetItem>

#include <optional>

namespace VOXI {

class QtObject2;

/// What there is to see of a property at some moment. What could not be read is left out.
struct QtShownProperty
{
    std::optional<QString> name;
    std::optional<QString> value;
    std::optional<Color> nameColor;
    bool isGroup = false;
    bool isPlain = false;
    bool isPulled = false;
    bool isDefault = true;

    /// Nothing if the property has ended, or ends by that. Calls the application.
    static std::optional<QtShownProperty> read(VXHandle<VXSimpleProperty2> property,
                                               const QtObject2& peer);
};

/// The row of a property.
class QtPropertyItem final : public QTreeWidgetItem
{
public:
    using Property = VXHandle<VXSimpleProperty2>;

    static constexpr int NameColumn = 0;
    static constexpr int ValueColumn = 1;

    QtPropertyItem(Property property, const QtShownProperty& shown);

    Property property() const { return m_property; }
    void show(const QtShownProperty& shown);

    /// Whether it tells each change, so that there is nothing to look for.
    bool isPlain() const { return m_isPlain; }
    /// Whether `refreshData` may change it.
    bool isPulled() const { return m_isPulled; }

    bool contains(const QString& text) const;

    /// Where it is to stand among those beside it.
    void setPlace(int place) { m_place = place; }
    int place() const { return m_place; }
    bool operator<(const QTreeWidgetItem& other) const override
    {
        return m_place < static_cast<const QtPropertyItem&>(other).m_place;
    }

    bool isMatch = false; ///< for whoever filters

private:
    void showBold(int column, bool isBold);

    Property m_property;
    int m_place = 0;
    bool m_isPlain = false;
    bool m_isPulled = false;
};

} // namespace VOXI
