#pragma once

/// What became of a text that a user typed.
enum class Typed {
    Nothing,     ///< empty: the field is to be cleared
    Value,       ///< read
    Unreadable,  ///< no value of this kind
};
