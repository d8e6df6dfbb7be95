#pragma once

class COutput;
struct SalvagedHome;

/// What a salvage came to, for programs.
void WriteSalvageJson(COutput& out, const SalvagedHome& saved);
