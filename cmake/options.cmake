# What every target of the program is compiled with.
add_library(moistair_options INTERFACE)
target_compile_features(moistair_options INTERFACE cxx_std_20)
target_compile_options(moistair_options INTERFACE
  # The same digits on every machine: no fused multiply-add, no reordering.
  -ffp-contract=off
  -Wall -Wextra -Wpedantic -Wconversion -Wsign-conversion -Wdouble-promotion -Wnon-virtual-dtor -Woverloaded-virtual
  # GCC 12 warns falsely on assignments to std::string.
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)
if(MOISTAIR_WERROR)
  target_compile_options(moistair_options INTERFACE -Werror)
endif()
