# Puts the content of a page of the manual into the common frame: head, title, navigation.
#   cmake -D CONTENT=FILE -D PAGE=FILE -P frame.cmake
# The title is the page's heading. A new page is added to this list.
cmake_minimum_required(VERSION 3.25)
set(pages
  index.html "Start"
  pressure.html "Pressure"
  charts.html "Charts"
  sheet.html "Sheets"
  points.html "Points"
  pointing.html "Reading"
  lines.html "Lines"
  mixing.html "Mixing"
  processes.html "Processes"
  weather.html "Weather"
  comfort.html "Comfort"
  log.html "Log and files"
  messages.html "Messages"
  equations.html "Equations"
  validation.html "Validation"
  commandline.html "Command line"
  document.html "Document files")

cmake_path(GET PAGE FILENAME page)
file(READ ${CONTENT} content)
if(NOT content MATCHES "<h1>([^<]*)</h1>")
  message(FATAL_ERROR "${CONTENT} has no heading <h1>")
endif()
set(title "${CMAKE_MATCH_1}")
if(NOT page IN_LIST pages)
  message(FATAL_ERROR "${page} is missing in the list of pages of docs/frame.cmake")
endif()

set(navigation "")
while(pages)
  list(POP_FRONT pages file caption)
  set(current "")
  if(file STREQUAL page)
    set(current " aria-current=\"page\"")
  endif()
  string(APPEND navigation "  <a href=\"${file}\"${current}>${caption}</a>\n")
endwhile()
configure_file(${CMAKE_CURRENT_LIST_DIR}/frame.html.in ${PAGE} @ONLY)
