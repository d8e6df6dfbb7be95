// The stored timers. What was read is written and read as the same timers.
#include "Fuzz.h"
#include "FuzzTexts.h"
#include "timers/ActiveTimerSet.h"

namespace {

class CStandingClock final : public CClock {
 public:
    [[nodiscard]] SYSTEMTIME GetLocalTime() const override { return {2026, 11, 4, 19, 9, 0, 0, 0}; }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    LoadTexts();
    const CStandingClock clock;
    ActiveTimerSet set(clock);
    ByteStream stream;
    stream.Attach(CInput(data, size).Rest());
    static_cast<void>(set.Load(stream));

    ByteStream stored;
    Demand(set.Save(stored), "timers that were read can be stored");
    ActiveTimerSet again(clock);
    stored.Rewind();
    Demand(again.Load(stored), "what was stored can be read");
    Demand(again.Count() == set.Count(), "it is as many timers");
    ByteStream storedAgain;
    Demand(again.Save(storedAgain), "they can be stored again");
    Demand(stored.Buffer() == storedAgain.Buffer(), "they are the same timers");

    for (int i = 0; i < set.Count(); ++i)
        Demand(set.IndexOf(set.IdAt(i)) == i, "every timer is found by its record");
    set.FoldAll();
    return 0;
}
