#pragma once

#include <QObject>

namespace VOXI {

class QtTableView2;

/// Tells a table that its font may have changed. Passes everything on.
class QtTableView2EventFilter final : public QObject
{
public:
    explicit QtTableView2EventFilter(QtTableView2& table);

    bool eventFilter(QObject* object, QEvent* event) override;

private:
    QtTableView2& m_table;
};

} // namespace VOXI
