// A library without the entry that is looked for.
extern "C" __attribute__((visibility("default"))) int SomethingElse() {
    return 1;
}
