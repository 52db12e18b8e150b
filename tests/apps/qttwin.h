#pragma once

#include <QWidget>

#include <memory>
#include <string>

namespace VOXI {

/// A page of the gallery as somebody would write it in plain Qt; null for pages without one.
std::unique_ptr<QWidget> plainTwin(const std::string& page);

} // namespace VOXI
