# Converts one page of the guide from Markdown to HTML:
#   cmake -DCMARK=... -DSOURCE=page.md -DTEMPLATE=page.html.in -DNAVIGATION=... -DOUTPUT=page.html
#       -P ConvertPage.cmake
execute_process(COMMAND "${CMARK}" --extension table --extension autolink --to html "${SOURCE}"
    OUTPUT_VARIABLE BODY COMMAND_ERROR_IS_FATAL ANY)
# Links lead from page to page, and headings are their targets.
string(REGEX REPLACE "href=\"([a-z-]+)\\.md([#\"])" "href=\"\\1.html\\2" BODY "${BODY}")
string(REGEX MATCHALL "<h[1-6]>[^\n]*</h[1-6]>" headings "${BODY}")
foreach(heading IN LISTS headings)
    string(REGEX REPLACE "<[^>]*>" "" text "${heading}")
    string(TOLOWER "${text}" id)
    string(REGEX REPLACE "&[a-z]+;" "" id "${id}")
    string(REGEX REPLACE "[^a-z0-9 -]" "" id "${id}")
    string(REPLACE " " "-" id "${id}")
    string(REGEX REPLACE "^<(h[1-6])>" "<\\1 id=\"${id}\">" target "${heading}")
    string(REPLACE "${heading}" "${target}" BODY "${BODY}")
endforeach()
string(REGEX MATCH "<h1[^>]*>([^<]*)</h1>" first "${BODY}")
set(TITLE "${CMAKE_MATCH_1}")
configure_file("${TEMPLATE}" "${OUTPUT}" @ONLY)
