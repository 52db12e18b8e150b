#pragma once

#include "voxi2/kernel/vxhandle.h"
#include "voxi2/modelview/vxsimpleproperty2.h"

#include <QString>
#include <QTreeWidgetItem>

#include <array>
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

/// The row of a property. Keeps its texts itself: Qt's lists of values for each column cost more
/// than these.
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

    QVariant data(int column, int role) const override;
    void setData(int column, int role, const QVariant& value) override;

    /// Where it is to stand among those beside it.
    void setPlace(int place) { m_place = place; }
    int place() const { return m_place; }
    bool operator<(const QTreeWidgetItem& other) const override
    {
        return m_place < static_cast<const QtPropertyItem&>(other).m_place;
    }

    bool isMatch = false; ///< for whoever filters

private:
    static bool isText(int column, int role);
    void showBold(int column, bool isBold);

    Property m_property;
    std::array<QString, 2> m_texts; // by columns
    int m_place = 0;
    bool m_isPlain = false;
    bool m_isPulled = false;
    bool m_isDefault = true;
};

} // namespace VOXI
