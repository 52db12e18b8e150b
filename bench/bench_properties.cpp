// A property browser, beside a QTreeWidget that a program fills itself.

#include "benchsupport.h"
#include "viewsettle.h"
#include "voxi2/modelview/vxsimplepropertybrowser2.h"

#include <QTreeWidget>

#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int Properties = 10'000;

struct VoxiProperties
{
    std::vector<std::unique_ptr<VOXI::VXSimpleProperty2>> m_properties;
    VOXI::VXSimplePropertyBrowser2 m_browser;

    VoxiProperties()
    {
        const auto type = VOXI::PropertyType::integer();
        for (int i = 0; i < Properties; ++i) {
            m_properties.push_back(
                std::make_unique<VOXI::VXSimpleProperty2>(L"Property " + std::to_wstring(i), type));
            m_properties.back()->setValue(i);
        }
        m_browser.resize({bench::ViewWidth, bench::ViewHeight});
        m_browser.show();
        bench::settle();
    }
    void fill()
    {
        for (const auto& each : m_properties)
            m_browser.addProperty(each.get());
    }
};

struct QtProperties
{
    struct Texts
    {
        QString m_name;
        QString m_value;
    };
    std::vector<Texts> m_texts;
    QTreeWidget m_tree;

    QtProperties()
    {
        for (int i = 0; i < Properties; ++i)
            m_texts.push_back(
                {QStringLiteral("Property ") + QString::number(i), QString::number(i)});
        m_tree.setColumnCount(2);
        m_tree.setAlternatingRowColors(true);
        m_tree.resize(bench::ViewWidth, bench::ViewHeight);
        m_tree.show();
        bench::settle();
    }
    void fill()
    {
        for (const Texts& each : m_texts) {
            auto* const item = new QTreeWidgetItem;
            item->setText(0, each.m_name);
            item->setText(1, each.m_value);
            item->setFlags(item->flags() | Qt::ItemIsEditable);
            m_tree.addTopLevelItem(item);
        }
    }
    void setAgain()
    {
        for (std::size_t i = 0; i < m_texts.size(); ++i) {
            QTreeWidgetItem* const item = m_tree.topLevelItem(static_cast<int>(i));
            item->setText(0, m_texts[i].m_name);
            item->setText(1, m_texts[i].m_value);
        }
    }
};

void fillVoxi(benchmark::State& state)
{
    for ([[maybe_unused]] auto _ : state) {
        VoxiProperties properties;
        bench::measure(state, [&] {
            properties.fill();
            properties.m_browser.refresh();
        });
        if (properties.m_browser.properties().size() != Properties)
            state.SkipWithError("properties were lost");
    }
}

void fillQt(benchmark::State& state)
{
    for ([[maybe_unused]] auto _ : state) {
        QtProperties properties;
        bench::measure(state, [&] { properties.fill(); });
    }
}

void refreshVoxi(benchmark::State& state)
{
    VoxiProperties properties;
    properties.fill();
    bench::settle();
    bench::repeat(state, [&] { properties.m_browser.refresh(); });
}

void refreshQt(benchmark::State& state)
{
    QtProperties properties;
    properties.fill();
    bench::settle();
    bench::repeat(state, [&] { properties.setAgain(); });
}

const bool s_added = bench::addPairs({
    {"PropertyTree", fillVoxi, fillQt},
    {"PropertyRefresh", refreshVoxi, refreshQt},
});

} // namespace
