// Precompiled headers need a target, and a target a source file.
