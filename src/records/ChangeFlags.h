#pragma once

// How a change of a row is made, in words at the place of the call.

/// When the change becomes durable: at once, or with the commit of the transaction that it belongs to.
enum class Commit { Now, Later };

/// Whether the row is looked for by its identity, or is the one that the last query stands on.
enum class Seek { Yes, No };
