#pragma once

#include <vector>

namespace VOXI {

class VXAbstractViewModel2;

/// A cell of a model. Rows and columns are named by numbers that the model gives them and that stay
/// when others come and go; 0 is none.
struct ModelCell2
{
    unsigned row = 0;
    unsigned column = 0;
    VXAbstractViewModel2* model = nullptr;

    /// The cell that stands for none.
    bool isNull() const noexcept { return !model; }

    friend bool operator==(const ModelCell2&, const ModelCell2&) = default;
};

/// The cells between two corners.
struct ModelRange
{
    ModelCell2 topLeft;
    ModelCell2 bottomRight;

    friend bool operator==(const ModelRange&, const ModelRange&) = default;
};

/// All cells of some rows in some columns.
struct ModelBlock
{
    std::vector<unsigned> rows;
    std::vector<unsigned> columns;

    friend bool operator==(const ModelBlock&, const ModelBlock&) = default;
};

} // namespace VOXI
