// The bytes choose what happens to the nodes of a tree: which come and go, open, hide, are selected or sorted. The
// store agrees with a plain tree every few steps, and at the end nothing is left of it.

#include "tests/support/nodemodel.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::size_t next = 0;
    const auto choose = [&](unsigned limit) {
        unsigned value = next < size ? data[next++] : 0;
        if (limit > 0x100 && next < size)
            value = value << 8 | data[next++];
        return limit == 0 ? 0 : value % limit;
    };
    testsupport::TNodeStory story(choose);
    for (int step = 1; next < size && step < 500; ++step) {
        story.Step(700, 400);
        if (step % 16 == 0)
            story.Compare();
    }
    story.Compare();
    return 0;
}
