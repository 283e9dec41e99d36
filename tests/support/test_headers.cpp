// Nothing: the precompiled headers of GoogleTest need a source file of their own.
