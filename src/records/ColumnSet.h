#pragma once

#include <cstdint>

/// Some columns of a record's table: bit n stands for the nth of its fields. A walk over a lifetime of
/// records that needs a few fields reads a few columns.
using ColumnSet = std::uint32_t;
