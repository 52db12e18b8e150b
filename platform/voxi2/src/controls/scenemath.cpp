#include "voxi2/controls/scenemath.h"

#include <algorithm>
#include <numbers>
#include <utility>

namespace VOXI {

namespace {

double radians(double degrees) noexcept { return degrees * std::numbers::pi / 180; }

Vector3 toVector(double x, double y, double z) noexcept
{
    return {static_cast<float>(x), static_cast<float>(y), static_cast<float>(z)};
}

} // namespace

Vector3 normalized(const Vector3& vector) noexcept
{
    const float size = length(vector);
    return size > 0 && std::isfinite(size)
               ? Vector3{vector.x / size, vector.y / size, vector.z / size}
               : Vector3{};
}

Matrix4 Matrix4::translation(const Vector3& offset) noexcept
{
    return Matrix4({1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, offset.x, offset.y, offset.z, 1});
}

Matrix4 Matrix4::scaling(const Vector3& factors) noexcept
{
    return Matrix4({factors.x, 0, 0, 0, 0, factors.y, 0, 0, 0, 0, factors.z, 0, 0, 0, 0, 1});
}

Matrix4 Matrix4::rotation(double degrees, const Vector3& axis) noexcept
{
    const Vector3 unit = normalized(axis);
    if (unit == Vector3{})
        return {};
    const double x = unit.x;
    const double y = unit.y;
    const double z = unit.z;
    const double c = std::cos(radians(degrees));
    const double s = std::sin(radians(degrees));
    const double d = 1 - c;
    return Matrix4({x * x * d + c, y * x * d + z * s, x * z * d - y * s, 0, //
                    x * y * d - z * s, y * y * d + c, y * z * d + x * s, 0, //
                    x * z * d + y * s, y * z * d - x * s, z * z * d + c, 0, //
                    0, 0, 0, 1});
}

Matrix4 Matrix4::lookAt(const Vector3& eye, const Vector3& target, const Vector3& up) noexcept
{
    const Vector3 f = normalized(target - eye);
    Vector3 s = normalized(cross(f, up));
    if (s == Vector3{}) // who looks straight up needs another one
        s = normalized(cross(f, std::abs(f.x) < 0.9f ? Vector3{1, 0, 0} : Vector3{0, 1, 0}));
    const Vector3 u = cross(s, f);
    return Matrix4({s.x, u.x, -f.x, 0, s.y, u.y, -f.y, 0, s.z, u.z, -f.z, 0, 0, 0, 0, 1})
           * translation(-eye);
}

Matrix4 Matrix4::perspective(double fieldOfView, double aspect, double nearPlane,
                             double farPlane) noexcept
{
    const double f = 1 / std::tan(radians(fieldOfView) / 2);
    const double depth = nearPlane - farPlane;
    return Matrix4({f / aspect, 0, 0, 0, 0, f, 0, 0,          //
                    0, 0, (farPlane + nearPlane) / depth, -1, //
                    0, 0, 2 * farPlane * nearPlane / depth, 0});
}

Matrix4 Matrix4::orthographic(double height, double aspect, double nearPlane,
                              double farPlane) noexcept
{
    const double depth = nearPlane - farPlane;
    return Matrix4({2 / (height * aspect), 0, 0, 0, 0, 2 / height, 0, 0, //
                    0, 0, 2 / depth, 0, 0, 0, (farPlane + nearPlane) / depth, 1});
}

std::array<double, 4> Matrix4::mapFull(const Vector3& p) const noexcept
{
    std::array<double, 4> mapped{};
    for (std::size_t row = 0; row < 4; ++row)
        mapped[row] = at(row, 0) * p.x + at(row, 1) * p.y + at(row, 2) * p.z + at(row, 3);
    return mapped;
}

Vector3 Matrix4::map(const Vector3& point) const noexcept
{
    const auto [x, y, z, w] = mapFull(point);
    return w == 0 ? toVector(x, y, z) : toVector(x / w, y / w, z / w);
}

Vector3 Matrix4::mapDirection(const Vector3& d) const noexcept
{
    const auto row = [&](std::size_t i) {
        return at(i, 0) * d.x + at(i, 1) * d.y + at(i, 2) * d.z;
    };
    return toVector(row(0), row(1), row(2));
}

/// By elimination, with the largest of each column first.
std::optional<Matrix4> Matrix4::inverted() const noexcept
{
    std::array<double, 16> from = m_columns;
    Matrix4 result;
    std::array<double, 16>& to = result.m_columns;
    const auto cell = [](auto& cells, std::size_t row, std::size_t column) -> double& {
        return cells[column * 4 + row];
    };
    for (std::size_t i = 0; i < 4; ++i) {
        std::size_t best = i;
        for (std::size_t row = i + 1; row < 4; ++row)
            if (std::abs(cell(from, row, i)) > std::abs(cell(from, best, i)))
                best = row;
        const double pivot = cell(from, best, i);
        if (!(std::abs(pivot) > 0) || !std::isfinite(pivot))
            return std::nullopt;
        for (std::size_t column = 0; column < 4; ++column) {
            std::swap(cell(from, i, column), cell(from, best, column));
            std::swap(cell(to, i, column), cell(to, best, column));
            cell(from, i, column) /= pivot;
            cell(to, i, column) /= pivot;
        }
        for (std::size_t row = 0; row < 4; ++row) {
            const double factor = row == i ? 0 : cell(from, row, i);
            for (std::size_t column = 0; column < 4 && factor != 0; ++column) {
                cell(from, row, column) -= factor * cell(from, i, column);
                cell(to, row, column) -= factor * cell(to, i, column);
            }
        }
    }
    return result.isFinite() ? std::optional(result) : std::nullopt;
}

bool Matrix4::isFinite() const noexcept
{
    return std::all_of(m_columns.begin(), m_columns.end(),
                       [](double number) { return std::isfinite(number); });
}

Matrix4 operator*(const Matrix4& a, const Matrix4& b) noexcept
{
    std::array<double, 16> product{};
    for (std::size_t column = 0; column < 4; ++column)
        for (std::size_t row = 0; row < 4; ++row)
            for (std::size_t i = 0; i < 4; ++i)
                product[column * 4 + row] += a.at(row, i) * b.at(i, column);
    return Matrix4(product);
}

void SceneBox::add(const Vector3& point) noexcept
{
    if (isEmpty) {
        minimum = maximum = point;
        isEmpty = false;
        return;
    }
    minimum = {std::min(minimum.x, point.x), std::min(minimum.y, point.y),
               std::min(minimum.z, point.z)};
    maximum = {std::max(maximum.x, point.x), std::max(maximum.y, point.y),
               std::max(maximum.z, point.z)};
}

void SceneBox::unite(const SceneBox& other) noexcept
{
    if (other.isEmpty)
        return;
    add(other.minimum);
    add(other.maximum);
}

Vector3 SceneBox::center() const noexcept { return minimum * 0.5f + maximum * 0.5f; }

float SceneBox::radius() const noexcept { return length(maximum * 0.5f - minimum * 0.5f); }

Vector3 SceneBox::corner(unsigned which) const noexcept
{
    return {(which & 1 ? maximum : minimum).x, (which & 2 ? maximum : minimum).y,
            (which & 4 ? maximum : minimum).z};
}

SceneBox SceneBox::mapped(const Matrix4& matrix) const noexcept
{
    SceneBox result;
    for (unsigned i = 0; i < 8 && !isEmpty; ++i)
        result.add(matrix.map(corner(i)));
    return result;
}

} // namespace VOXI
