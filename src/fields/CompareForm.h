#pragma once

/// How the values of a field are compared when the record list is sorted by its column.
enum class CompareForm { DateAndStart, Span, Text, TimeOfDay, Number, Flag };
