// Nothing: a library with a precompiled header needs a source.
