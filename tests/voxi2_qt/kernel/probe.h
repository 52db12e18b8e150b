#pragma once

#include "toolkit.h"
#include "trov/emitterstable.h"
#include "trov/operations.h"
#include "voxi2_qt/kernel/qtwidget2shim.h"

#include <QAbstractScrollArea>
#include <QEvent>

#include <algorithm>
#include <vector>

namespace VOXI {

/// A kind of widget that the tests add themselves, as other libraries may: its one request of its
/// own is answered with the double. Its widget notes the events that it gets to see.
struct VXProbe2Emitters : TROV::EmittersTable<VXWidget2Emitters>
{
    using EmittersTable::EmittersTable;

    TROV::Request<int(int)> twice{*this};
    TROV::RequestsEnd requestsEnd{*this};
};

class VXProbe2 : public VXWidget2
{
public:
    enum Kind { Plain, ScrollArea };

    explicit VXProbe2(VXObject2* parent = nullptr, Kind kind = Plain);
    ~VXProbe2() override;

    int twice(int number) const { return m_emitters.twice(number); }

private:
    VXProbe2Emitters m_emitters;
};

/// A Qt widget class that notes the events that reach it.
template <class Q>
class NotingWidget : public Q
{
public:
    using Q::Q;

    bool saw(QEvent::Type type) const
    {
        return std::find(m_seen.begin(), m_seen.end(), type) != m_seen.end();
    }
    void forget() { m_seen.clear(); }

protected:
    bool event(QEvent* event) override
    {
        m_seen.push_back(event->type());
        return Q::event(event);
    }

    std::vector<QEvent::Type> m_seen;
};

/// Of a scroll area also what comes through the viewport.
class NotingArea : public NotingWidget<QAbstractScrollArea>
{
public:
    using NotingWidget::NotingWidget;

protected:
    bool viewportEvent(QEvent* event) override
    {
        m_seen.push_back(event->type());
        return QAbstractScrollArea::viewportEvent(event);
    }
};

/// The peer of the probe.
template <class Q>
class QtProbe2 : public QtWidget2Shim<VXProbe2, VXProbe2Emitters, QtWidget2, Q>
{
public:
    QtProbe2(VXProbe2* object, VXProbe2Emitters* emitters, QWidget* parent)
        : QtWidget2Shim<VXProbe2, VXProbe2Emitters, QtWidget2, Q>(object, emitters, requests(),
                                                                  parent)
    {}

    int doTwice(int number) { return 2 * number; }

private:
    static const auto& requests()
    {
        static const auto table = TROV::operations<VXProbe2Emitters>(
            TROV::row<&VXProbe2Emitters::twice, &QtProbe2::doTwice>());
        return table;
    }
};

using QtPlainProbe2 = QtProbe2<NotingWidget<QWidget>>;
using QtAreaProbe2 = QtProbe2<NotingArea>;

inline QtPlainProbe2& plain(const VXProbe2& probe)
{
    return dynamic_cast<QtPlainProbe2&>(*lookup(&probe));
}

inline QtAreaProbe2& area(const VXProbe2& probe)
{
    return dynamic_cast<QtAreaProbe2&>(*lookup(&probe));
}

} // namespace VOXI
