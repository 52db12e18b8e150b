#include "counter.h"
#include "qthost/qthost.h"

#include <cstdlib>

// The program ends after one turn of the event loop; its exit code says whether the window stood.
int main(int argc, char** argv)
{
    VOXI::QtHost host(argc, argv);
    const Counter counter;
    VOXI::QtHost::quit(counter.isShown() ? EXIT_SUCCESS : EXIT_FAILURE);
    return host.exec();
}
