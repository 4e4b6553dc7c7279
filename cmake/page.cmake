# add_page(TARGET): TARGET has the function `pageFrame` of "pageFrame.h", which has the markup, the style
# and the script of the page in tools/page, and the policy that allows these two alone, by their hashes.

if(NOT CMAKE_SCRIPT_MODE_FILE)
  function(add_page target)
    set(folder ${PROJECT_SOURCE_DIR}/tools/page)
    # In the order in which they use each other when they are loaded.
    list(TRANSFORM ARGN PREPEND ${folder}/ OUTPUT_VARIABLE scripts)
    set(output ${CMAKE_CURRENT_BINARY_DIR}/pageFrame.cpp)
    add_custom_command(OUTPUT ${output}
      COMMAND ${CMAKE_COMMAND} -DOUTPUT=${output} -DFOLDER=${folder} "-DSCRIPTS=${scripts}"
        -P ${CMAKE_CURRENT_FUNCTION_LIST_FILE}
      DEPENDS ${scripts} ${folder}/page.html ${folder}/style.css ${CMAKE_CURRENT_FUNCTION_LIST_FILE}
      COMMENT "Embedding the page" VERBATIM)
    target_sources(${target} PRIVATE ${output})
  endfunction()
  return()
endif()

cmake_minimum_required(VERSION 3.25) # for the policies of a script

# Sets `output` to the base64 form of the SHA-256 of a text.
function(hash_of text output)
  set(alphabet ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/)
  string(SHA256 hash "${text}")
  set(digits "")
  # 64 hexadecimal digits and two zeros: three of them are two of base64.
  foreach(start RANGE 0 63 3)
    string(SUBSTRING "${hash}00" ${start} 3 three)
    math(EXPR high "0x${three} >> 6")
    math(EXPR low "0x${three} & 63")
    string(SUBSTRING ${alphabet} ${high} 1 high)
    string(SUBSTRING ${alphabet} ${low} 1 low)
    string(APPEND digits ${high}${low})
  endforeach()
  string(SUBSTRING ${digits} 0 43 digits)
  set(${output} "${digits}=" PARENT_SCOPE)
endfunction()

set(script "")
foreach(file IN LISTS SCRIPTS)
  file(READ ${file} content)
  string(APPEND script "${content}\n")
endforeach()
file(READ ${FOLDER}/style.css style)
file(READ ${FOLDER}/page.html body)
foreach(part IN ITEMS script style body)
  # What would end the element, or the literal in C++, too early.
  if("${${part}}" MATCHES "</script|</style|<!--|\\)page\"|\r")
    message(FATAL_ERROR "The page has ${CMAKE_MATCH_0} in its ${part}")
  endif()
endforeach()
hash_of("${script}" script_hash)
hash_of("${style}" style_hash)
string(CONCAT policy "default-src 'none'; script-src 'sha256-${script_hash}'; "
  "style-src 'sha256-${style_hash}'; base-uri 'none'; form-action 'none'")

string(CONCAT head "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
  "<meta http-equiv=\"Content-Security-Policy\" content=\"${policy}\">\n"
  "<meta name=\"referrer\" content=\"no-referrer\">\n"
  "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>tavo</title>\n")

# Turns a text into literals of C++, for which compilers have limits.
function(literals_of text output)
  set(literals "")
  set(start 0)
  string(LENGTH "${text}" length)
  while(start LESS length)
    string(SUBSTRING "${text}" ${start} 8000 piece)
    string(APPEND literals "    R\"page(${piece})page\"sv,\n")
    math(EXPR start "${start} + 8000")
  endwhile()
  set(${output} "${literals}" PARENT_SCOPE)
endfunction()

literals_of("${head}<style>${style}</style>\n</head>\n<body>\n${body}<script type=\"application/json\" id=\"data\">"
  before)
literals_of("</script>\n<script type=\"module\">${script}</script>\n</body>\n</html>\n" after)
file(WRITE ${OUTPUT} "#include \"pageFrame.h\"

namespace tavo {

namespace {

using namespace std::string_view_literals;

constexpr std::string_view before[] = {
${before}};
constexpr std::string_view after[] = {
${after}};

} // namespace

PageFrame pageFrame() { return {before, after}; }

} // namespace tavo
")
