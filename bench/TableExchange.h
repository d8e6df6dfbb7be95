#pragma once

struct Places;

/// The lines of what goes out of a home of that size and comes in again.
void ExchangeLines(const Places& places, int size);
