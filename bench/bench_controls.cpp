// Lists that are filled, and texts that are typed.

#include "benchsupport.h"
#include "voxi2/controls/vxcombobox2.h"
#include "voxi2/controls/vxedit2.h"
#include "voxi2/controls/vxlistbox2.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QStringList>

namespace {

constexpr int ListSize = 100'000;
constexpr int ComboSize = 10'000;

// The texts are native to each side, and made outside of what is timed.

void fillVoxiList(benchmark::State& state)
{
    std::vector<std::wstring> texts;
    for (int i = 0; i < ListSize; ++i)
        texts.push_back(L"Item number " + std::to_wstring(i));
    for ([[maybe_unused]] auto _ : state) {
        VOXI::VXListBox2 list;
        bench::measure(state, [&] { list.addItems(texts); });
        if (list.count() != ListSize)
            state.SkipWithError("items were lost");
    }
}

void fillQtList(benchmark::State& state)
{
    QStringList texts;
    for (int i = 0; i < ListSize; ++i)
        texts.push_back(QStringLiteral("Item number ") + QString::number(i));
    for ([[maybe_unused]] auto _ : state) {
        QListWidget list;
        bench::measure(state, [&] { list.addItems(texts); });
    }
}

void fillVoxiCombo(benchmark::State& state)
{
    std::vector<VOXI::ComboItem> items;
    for (int i = 0; i < ComboSize; ++i)
        items.push_back({L"Item number " + std::to_wstring(i)});
    for ([[maybe_unused]] auto _ : state) {
        VOXI::VXComboBox2 combo;
        bench::measure(state, [&] { combo.addItems(items); });
        if (combo.count() != ComboSize)
            state.SkipWithError("items were lost");
    }
}

void fillQtCombo(benchmark::State& state)
{
    QStringList texts;
    for (int i = 0; i < ComboSize; ++i)
        texts.push_back(QStringLiteral("Item number ") + QString::number(i));
    for ([[maybe_unused]] auto _ : state) {
        QComboBox combo;
        bench::measure(state, [&] { combo.addItems(texts); });
    }
}

struct VoxiEdit
{
    VOXI::VXEdit2 m_edit;
    long m_characters = 0;

    VoxiEdit()
    {
        m_edit.textEdited().connect(&m_edit, [this](const VOXI::VXEditTextEvent2& event) {
            m_characters += static_cast<long>(event.newText().size());
        });
    }
    QWidget* widget() const { return bench::widgetOf(&m_edit); }
};

struct QtEdit
{
    QLineEdit m_edit;
    long m_characters = 0;

    QtEdit()
    {
        QObject::connect(&m_edit, &QLineEdit::textEdited, &m_edit,
                         [this](const QString& text) { m_characters += text.size(); });
    }
    QWidget* widget() { return &m_edit; }
};

/// A letter, and the key that takes it away again.
template <class Edit>
void typing(benchmark::State& state)
{
    Edit made;
    QWidget* const widget = made.widget();
    widget->show();
    bench::settle();
    const auto press = [widget](int key, const QString& text) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, text);
        QCoreApplication::sendEvent(widget, &event);
    };
    const QString letter = QStringLiteral("a");
    bench::repeat(
        state,
        [&] {
            press(Qt::Key_A, letter);
            press(Qt::Key_Backspace, QString());
        },
        1'000);
    if (made.m_characters != static_cast<long>(state.iterations()))
        state.SkipWithError("keys were lost");
}

const bool s_added = bench::addPairs({
    {"ListFill", fillVoxiList, fillQtList},
    {"ComboFill", fillVoxiCombo, fillQtCombo},
    {"EditTyping", typing<VoxiEdit>, typing<QtEdit>},
});

} // namespace
