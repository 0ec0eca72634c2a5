#pragma once

#include "Benchmarks/Benchmark.h"
#include "Platform/Foundation/Expected.h"

/// Draws rows of the benchmarks as SVG files.
namespace Plot {

/// Writes a picture of `row` of the suite `suite` into the existing folder `folder`: how the value
/// grows with the size if the row has several sizes, otherwise the value beside what the target
/// allows. Both axes of the former are logarithmic. Returns the error of a file that cannot be
/// written.
Expected<void> write(const QString &folder, const QString &suite, const Benchmark::Row &row);

}  // namespace Plot
