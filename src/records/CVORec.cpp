#include "records/CVORec.h"

bool CVORec::Load(const RowTable&, std::size_t) {
    return false;
}
