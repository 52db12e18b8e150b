// The files of a folder, sorted by their sizes, of which those are shown that are searched.

#include "qthost/qthost.h"
#include "voxi2/containers/vxboxlayout2.h"
#include "voxi2/containers/vxpanel2.h"
#include "voxi2/containers/vxwindow2.h"
#include "voxi2/controls/vxedit2.h"
#include "voxi2/modelview/vxtablemodel2.h"
#include "voxi2/modelview/vxtableview2.h"

#include <filesystem>

using namespace VOXI;

int main(int argc, char** argv)
{
    QtHost host(argc, argv);
    VXWindow2 window("Files");
    auto* page = new VXPanel2(&window);
    auto* column = new VXBoxLayout2(page, Direction::TopToBottom);
    auto* search = new VXEdit2(page);
    auto* table = new VXTableView2(page);
    column->addWidget(search);
    column->addWidget(table);

    auto* model = new VXTableModel2({"Name", "Size"}, &window);
    for (const auto& entry : std::filesystem::directory_iterator("."))
        if (entry.is_regular_file())
            model->appendRow({entry.path().filename().string(), int(entry.file_size())});
    model->setSorting(2, SortOrder::Descending);
    table->setViewModel(model);
    search->textEdited().connect(model, [=] { model->setFilterText(search->text()); });

    window.setCentralWidget(page);
    window.show();
    return host.exec();
}
