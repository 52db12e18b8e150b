#pragma once

#include "voxi2/voxi2_export.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <optional>

namespace VOXI {

/// A point or a direction in a scene. In memory it is what graphics cards read.
struct Vector3
{
    float x = 0;
    float y = 0;
    float z = 0;

    constexpr Vector3& operator+=(const Vector3& other) noexcept
    {
        return *this = {x + other.x, y + other.y, z + other.z};
    }
    constexpr Vector3& operator-=(const Vector3& other) noexcept
    {
        return *this = {x - other.x, y - other.y, z - other.z};
    }
    constexpr Vector3& operator*=(float factor) noexcept
    {
        return *this = {x * factor, y * factor, z * factor};
    }

    friend constexpr Vector3 operator+(Vector3 a, const Vector3& b) noexcept { return a += b; }
    friend constexpr Vector3 operator-(Vector3 a, const Vector3& b) noexcept { return a -= b; }
    friend constexpr Vector3 operator-(const Vector3& a) noexcept { return Vector3{} - a; }
    friend constexpr Vector3 operator*(Vector3 a, float factor) noexcept { return a *= factor; }
    friend constexpr bool operator==(const Vector3&, const Vector3&) = default;
};

constexpr float dot(const Vector3& a, const Vector3& b) noexcept
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

constexpr Vector3 cross(const Vector3& a, const Vector3& b) noexcept
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

/// Also of vectors whose squares are beyond what a float holds.
inline float length(const Vector3& vector) noexcept
{
    return std::hypot(vector.x, vector.y, vector.z);
}

/// The same direction with the length 1; (0, 0, 0) where there is no direction.
VOXI2_EXPORT Vector3 normalized(const Vector3& vector) noexcept;

/// Whether it holds no infinity and no NaN.
inline bool isFinite(const Vector3& vector) noexcept
{
    return std::isfinite(vector.x) && std::isfinite(vector.y) && std::isfinite(vector.z);
}

/// Four by four numbers that map points. In `a * b`, `b` is what is done first. Angles are in
/// degrees, counterclockwise for who looks against the axis; the default maps everything to itself.
class VOXI2_EXPORT Matrix4
{
public:
    constexpr Matrix4() noexcept : m_columns{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1} {}
    /// The numbers column by column, as OpenGL has them.
    explicit constexpr Matrix4(const std::array<double, 16>& columns) noexcept : m_columns(columns)
    {}

    static Matrix4 translation(const Vector3& offset) noexcept;
    static Matrix4 scaling(const Vector3& factors) noexcept;
    /// About an axis through the origin; nothing is turned about (0, 0, 0).
    static Matrix4 rotation(double degrees, const Vector3& axis) noexcept;
    /// Of an eye that looks along -z, `up` being above it.
    static Matrix4 lookAt(const Vector3& eye, const Vector3& target, const Vector3& up) noexcept;
    /// `fieldOfView` is the vertical angle, `aspect` the width divided by the height.
    static Matrix4 perspective(double fieldOfView, double aspect, double nearPlane,
                               double farPlane) noexcept;
    static Matrix4 orthographic(double height, double aspect, double nearPlane,
                                double farPlane) noexcept;

    double at(std::size_t row, std::size_t column) const noexcept
    {
        return m_columns[column * 4 + row];
    }
    const std::array<double, 16>& columns() const noexcept { return m_columns; }

    /// Where a point comes to lie, divided by its fourth coordinate.
    Vector3 map(const Vector3& point) const noexcept;
    /// All four coordinates of that, not divided.
    std::array<double, 4> mapFull(const Vector3& point) const noexcept;
    /// What becomes of a direction: it is turned and scaled, not moved.
    Vector3 mapDirection(const Vector3& direction) const noexcept;

    /// None where nothing undoes it.
    std::optional<Matrix4> inverted() const noexcept;

    bool isFinite() const noexcept;

    VOXI2_EXPORT friend Matrix4 operator*(const Matrix4& a, const Matrix4& b) noexcept;
    friend bool operator==(const Matrix4&, const Matrix4&) = default;

private:
    std::array<double, 16> m_columns;
};

/// The box with edges along the axes that holds some points; empty for none.
struct VOXI2_EXPORT SceneBox
{
    Vector3 minimum{};
    Vector3 maximum{};
    bool isEmpty = true;

    void add(const Vector3& point) noexcept;
    void unite(const SceneBox& other) noexcept;
    Vector3 center() const noexcept;
    /// From the centre to a corner.
    float radius() const noexcept;
    /// One of its eight, by the bits of a number of 0 to 7.
    Vector3 corner(unsigned which) const noexcept;
    /// The box around this one's mapped corners.
    SceneBox mapped(const Matrix4& matrix) const noexcept;

    friend bool operator==(const SceneBox&, const SceneBox&) = default;
};

} // namespace VOXI
