#include "qtpropertyitem.h"

#include "trov/thread.h"
#include "voxi2_qt/kernel/qtconvert.h"
#include "voxi2_qt/kernel/qthandlerframe.h"
#include "voxi2_qt/kernel/qtobject2.h"

#include <QBrush>

#include <algorithm>
#include <exception>
#include <utility>

namespace VOXI {

namespace {

/// Calls one of the functions that an application may override; false if the property has gone
/// then.
template <class Value, class Read>
bool readOne(VXHandle<VXSimpleProperty2> property, std::optional<Value>& value, Read read)
{
    try {
        value = read(*property.get());
    } catch (...) {
        TROV::Thread::reportException(std::current_exception());
    }
    return property.isValid();
}

bool readAll(VXHandle<VXSimpleProperty2> handle, QtShownProperty& shown)
{
    using P = VXSimpleProperty2;
    return readOne(handle, shown.name, [](const P& p) { return toQString(p.getName()); })
           && readOne(handle, shown.value, [](const P& p) { return toQString(p.getValue()); })
           && readOne(handle, shown.nameColor, [](const P& p) { return p.getNameTextColor(); });
}

} // namespace

std::optional<QtShownProperty> QtShownProperty::read(VXHandle<VXSimpleProperty2> handle,
                                                     const QtObject2& peer)
{
    const VXObjectDataLocker lock;
    VXSimpleProperty2* const property = handle.get();
    if (!property)
        return {};
    QtShownProperty shown;
    shown.isGroup = property->type().kind() == PropertyKind::Group;
    shown.isPlain = property->isPlain();
    shown.isPulled = property->isPulled();
    shown.isDefault = property->isDefault();
    if (shown.isPlain) {
        shown.name = toQString(property->keptName());
        shown.value = toQString(property->getValue());
        shown.nameColor = property->keptNameTextColor();
        property->noteRead(peer.getUID());
        return shown;
    }
    const QtHandlerFrame frame(peer);
    if (!readAll(handle, shown))
        return {};
    property->noteRead(peer.getUID()); // not before: reading may have been news, each time
    return shown;
}

QtPropertyItem::QtPropertyItem(Property property, const QtShownProperty& shown)
    : m_property(property)
{
    setFlags(flags() | Qt::ItemIsEditable);
    if (shown.isGroup)
        showBold(NameColumn, true);
    show(shown);
}

void QtPropertyItem::show(const QtShownProperty& shown)
{
    m_isPlain = shown.isPlain;
    m_isPulled = shown.isPulled;
    const QString& name = shown.name ? *shown.name : m_texts[NameColumn];
    const QString& value = shown.value ? *shown.value : m_texts[ValueColumn];
    if (name != m_texts[NameColumn] || value != m_texts[ValueColumn]) {
        m_texts = {name, value};
        emitDataChanged();
    }
    if (std::exchange(m_isDefault, shown.isDefault) != shown.isDefault)
        showBold(ValueColumn, !shown.isDefault);
    if (!shown.nameColor)
        return;
    if (shown.nameColor->alpha() != 0)
        setForeground(NameColumn, VX2Qt(*shown.nameColor));
    else if (data(NameColumn, Qt::ForegroundRole).isValid())
        setData(NameColumn, Qt::ForegroundRole, QVariant());
}

void QtPropertyItem::showBold(int column, bool isBold)
{
    QFont bold;
    bold.setBold(true);
    setData(column, Qt::FontRole, isBold ? QVariant(bold) : QVariant());
}

QVariant QtPropertyItem::data(int column, int role) const
{
    return isText(column, role) ? m_texts[static_cast<std::size_t>(column)]
                                : QTreeWidgetItem::data(column, role);
}

void QtPropertyItem::setData(int column, int role, const QVariant& value)
{
    if (!isText(column, role))
        return QTreeWidgetItem::setData(column, role, value);
    m_texts[static_cast<std::size_t>(column)] = value.toString();
    emitDataChanged();
}

bool QtPropertyItem::isText(int column, int role)
{
    return (role == Qt::DisplayRole || role == Qt::EditRole)
           && (column == NameColumn || column == ValueColumn);
}

bool QtPropertyItem::contains(const QString& text) const
{
    return std::ranges::any_of(
        m_texts, [&](const QString& each) { return each.contains(text, Qt::CaseInsensitive); });
}

} // namespace VOXI
