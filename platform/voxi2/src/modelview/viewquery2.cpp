#include "voxi2/modelview/viewquery2.h"

#include "voxi2/modelview/viewmodellink2.h"

namespace VOXI {

ViewQuery2::ViewQuery2()
{
    static const auto nobody = std::make_shared<const Body>();
    m_body = nobody;
}

bool ViewQuery2::isWanted() const
{
    return m_body->interest && m_body->interest->wants(rows(), columns());
}

HeaderQuery2::HeaderQuery2()
{
    static const auto nobody = std::make_shared<const Body>();
    m_body = nobody;
}

} // namespace VOXI
