#include "page.h"

namespace gallery {

const std::vector<Page>& pages()
{
    static const std::vector<Page> all = {
        countingPage(),
    };
    return all;
}

}  // namespace gallery
