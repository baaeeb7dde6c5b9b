# Writes OUTPUT, a source file with one NUL-terminated text for each name and file of SCRIPTS.
# Bytes instead of string literals, because compilers limit the length of a literal.
set(source "#include \"setup/DatabaseScripts.h\"\n\nnamespace Quillane::DatabaseScripts {\n")
while(SCRIPTS)
    list(POP_FRONT SCRIPTS name file)
    file(READ "${file}" bytes HEX)
    string(REGEX REPLACE "(................................)" "\\1\n" bytes "${bytes}")
    string(REGEX REPLACE "([0-9a-f][0-9a-f])" "'\\\\x\\1'," bytes "${bytes}")
    string(APPEND source "\nstatic const char bytesOf${name}[] = {\n${bytes}'\\0'};\n"
        "const char* const ${name} = bytesOf${name};\n")
endwhile()
string(APPEND source "\n} // namespace Quillane::DatabaseScripts\n")
file(WRITE "${OUTPUT}" "${source}")
