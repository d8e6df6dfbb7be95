#pragma once

#include "lang/Text.h"

#include <span>

/// A kind of payment, as the fourth item of an expense may name it: "CA: Cash".
struct PaymentKind {
    Text code;
    Text name;
};

/// The 19 fixed kinds in the order in which they are offered.
[[nodiscard]] std::span<const PaymentKind> PaymentKinds();
