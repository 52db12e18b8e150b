#pragma once

// What the examples of the documents talk about without making it. It is compiled, never run.

#include "qthost/qthost.h"
#include "qthost/qtwidgets.h"
#include "voxi/guiobject.h"
#include "voxi/reentrancyprotector.h"
#include "voxi2/voxi2.h"
#include "voxi_util/vxlazydata.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QWidget>

#include <cassert>
#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace fixture {

using namespace VOXI;
using namespace std::chrono_literals;

using Rows = std::vector<unsigned>;
using Hits = Rows;
using Words = std::vector<std::string>;

struct Page : VXPanel2
{
    void addRow(VXWidget2* widget);
    void addRow(const AnyText& text);
    void show(const Rows& rows);
    void refresh();
};

struct Application
{};
using Editor = Application;

struct Database
{
    std::vector<unsigned> keys() const;
    std::string name(unsigned row) const;
    void read(const std::vector<unsigned>& rows, const std::vector<unsigned>& columns,
              const std::function<void(QueryResult2)>& done) const;
};

struct Layer
{
    Color color() const;
    void setColor(const Color& color);
    std::wstring name() const;
    void rename(const std::wstring& name);
};

struct Letters
{
    VXFont font() const;
    void setFont(const VXFont& font);
};

struct Catalog
{
    std::wstring find(const std::string& english) const;
};

struct ChartView : QWidget
{};

struct Report
{
    VXMimeData2 print() const;
};

/// What examples capture by its name, which only local variables allow.
struct Example : Page
{
    virtual void example(VXWidget2* view, VXText2* text, Rows rows, const Words& words,
                         const std::shared_ptr<Report>& report) = 0;

    TROV::Task m_search;
    TROV::Timer m_timer;
};

extern int argc;
extern char** argv;
extern QHBoxLayout* qtLayout;
extern Database m_database;
extern Catalog catalog;
extern Layer layer;
extern Letters* editor;
extern bool m_inUpdate;

extern VXWindow2* window;
extern Page* page;
extern VXFrame2* frame;
extern VXObject2* owner;
extern VXDialog2* dialog;
extern VXBoxLayout2* layout;
extern VXEdit2* edit;
extern VXText2* text;
extern VXText2* count;
extern VXButton2* button;
extern VXProgressBar2* progress;
extern VXSimplePropertyBrowser2* browser;
extern VXMenu2* recent;
extern VXMenu2* fileMenu;
extern VXHandle<Page> handle;
extern VXHandle<VXText2> status;
extern const std::string name;
extern VXCanvas2 canvas;
extern QueryResult2 cells;
extern VXMimeData2 data;
extern std::vector<unsigned> keys;
extern const std::filesystem::path file;
extern const unsigned row;
extern const Color red;
extern const Icon copyIcon;

std::vector<std::string> recentFiles();
Hits search(const Words& words, TROV::TaskContext& context);
Hits work(TROV::TaskContext& context);
std::string nameOf(int file);
extern const int files;
extern const Hits hits;
void showRows(const Rows& rows);
void save();
void load(const std::filesystem::path& file);

} // namespace fixture
