#pragma once

namespace VOXI {

/// A position or an offset, in pixels unless said otherwise; y grows downwards.
template <class T>
struct VXPoint
{
    T x{};
    T y{};

    constexpr VXPoint& operator+=(const VXPoint& other) noexcept
    {
        x = static_cast<T>(x + other.x);
        y = static_cast<T>(y + other.y);
        return *this;
    }
    constexpr VXPoint& operator-=(const VXPoint& other) noexcept
    {
        x = static_cast<T>(x - other.x);
        y = static_cast<T>(y - other.y);
        return *this;
    }
    constexpr VXPoint& operator*=(T factor) noexcept
    {
        x = static_cast<T>(x * factor);
        y = static_cast<T>(y * factor);
        return *this;
    }

    friend constexpr VXPoint operator+(VXPoint a, const VXPoint& b) noexcept { return a += b; }
    friend constexpr VXPoint operator-(VXPoint a, const VXPoint& b) noexcept { return a -= b; }
    friend constexpr VXPoint operator*(VXPoint a, T factor) noexcept { return a *= factor; }
    friend constexpr VXPoint operator-(const VXPoint& a) noexcept { return VXPoint{} - a; }
    friend constexpr bool operator==(const VXPoint&, const VXPoint&) = default;
};

/// An extent. In a requested size -1 leaves that dimension as it is.
template <class T>
struct Size
{
    T width{};
    T height{};

    constexpr bool isEmpty() const noexcept { return width <= T{} || height <= T{}; }
    friend constexpr bool operator==(const Size&, const Size&) = default;
};

/// Four numbers, used in three ways; each has its own way of making and its own readers:
/// - a rectangle: x, y, width, height;
/// - margins: `VXRect::margins(left, top, right, bottom)`, read by marginLeft() and so on;
/// - the cell of a grid: `VXRect::cell(row, column, rowSpan, columnSpan)`, read by row() and so on.
///
/// The value does not know which of the three it is.
template <class T>
struct VXRect
{
    T x{};
    T y{};
    T width{};
    T height{};

    static constexpr VXRect margins(T left, T top, T right, T bottom) noexcept
    {
        return {left, top, right, bottom};
    }
    constexpr T marginLeft() const noexcept { return x; }
    constexpr T marginTop() const noexcept { return y; }
    constexpr T marginRight() const noexcept { return width; }
    constexpr T marginBottom() const noexcept { return height; }

    static constexpr VXRect cell(T row, T column, T rowSpan = T{1}, T columnSpan = T{1}) noexcept
    {
        return {row, column, rowSpan, columnSpan};
    }
    constexpr T row() const noexcept { return x; }
    constexpr T column() const noexcept { return y; }
    constexpr T rowSpan() const noexcept { return width; }
    constexpr T columnSpan() const noexcept { return height; }

    constexpr VXPoint<T> topLeft() const noexcept { return {x, y}; }
    constexpr Size<T> size() const noexcept { return {width, height}; }
    /// The first x and y beyond the rectangle.
    constexpr VXPoint<T> end() const noexcept
    {
        return {static_cast<T>(x + width), static_cast<T>(y + height)};
    }
    constexpr bool isEmpty() const noexcept { return width <= T{} || height <= T{}; }

    /// Whether the point lies inside; the right and the lower edge do not belong to the inside.
    constexpr bool contains(const VXPoint<T>& point) const noexcept
    {
        return point.x >= x && point.y >= y && point.x < end().x && point.y < end().y;
    }

    /// Whether the two have an area in common; an empty rectangle has none with any.
    constexpr bool intersects(const VXRect& other) const noexcept
    {
        return !isEmpty() && !other.isEmpty() && x < other.end().x && other.x < end().x
               && y < other.end().y && other.y < end().y;
    }

    friend constexpr bool operator==(const VXRect&, const VXRect&) = default;
};

} // namespace VOXI
