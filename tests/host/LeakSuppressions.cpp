// What the leak checker shall pass over: memory that font libraries keep until the process ends.

extern "C" char const* __lsan_default_suppressions();

extern "C" char const* __lsan_default_suppressions() {
    return "leak:libfontconfig\n";
}
