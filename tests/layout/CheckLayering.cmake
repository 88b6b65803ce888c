# cmake -DMANIFEST=<libraries.txt> -P CheckLayering.cmake
#
# The manifest has one line per target: name|library or program|the Skelda libraries it links
# directly|those it links publicly|its source files. A library's files may include the headers of
# the library itself and of the libraries it links directly. Its own headers are read by whoever
# links it, so they may include only those of the libraries that come with it, the ones it links
# publicly; and it links a library publicly only where one of its headers includes one of that
# library's, so that nothing is handed on that no header needs. A program's files (a test's or a
# benchmark's) may include the headers of the libraries it links and of all that these bring
# publicly, as the compiler finds them. Fails with every include and every link that breaks a
# rule, and with any cycle among the libraries.
cmake_minimum_required(VERSION 3.25)

file(STRINGS ${MANIFEST} lines)
set(targets "")
foreach(line IN LISTS lines)
    string(REPLACE "|" ";" fields "${line}")
    list(GET fields 0 name)
    list(GET fields 1 kind)
    list(GET fields 2 deps)
    list(GET fields 3 public)
    list(GET fields 4 files)
    string(REPLACE "," ";" deps "${deps}")
    string(REPLACE "," ";" public "${public}")
    string(REPLACE "," ";" files "${files}")
    list(APPEND targets ${name})
    set(kind_${name} ${kind})
    set(deps_${name} ${deps})
    set(public_${name} ${public})
    set(files_${name} ${files})
endforeach()

# Who owns each header: the library that lists it among its sources, or whose sources stand
# beside it. A header name in two libraries would make includes ambiguous.
set(problems "")
foreach(name IN LISTS targets)
    if(NOT kind_${name} STREQUAL "library")
        continue()
    endif()
    set(headers "")
    foreach(file IN LISTS files_${name})
        get_filename_component(dir ${file} DIRECTORY)
        file(GLOB beside ${dir}/*.h)
        list(APPEND headers ${beside})
    endforeach()
    list(REMOVE_DUPLICATES headers)
    foreach(path IN LISTS headers)
        get_filename_component(header ${path} NAME)
        string(MAKE_C_IDENTIFIER "${header}" key)
        if(DEFINED owner_${key} AND NOT owner_${key} STREQUAL name)
            # A folder shared by a library and a helper of the benchmarks: the library owns it.
            if(NOT name STREQUAL "benchstore" AND NOT owner_${key} STREQUAL "benchstore")
                string(APPEND problems "  ${header} stands in both ${owner_${key}} and ${name}\n")
            endif()
            if(owner_${key} STREQUAL "benchstore")
                set(owner_${key} ${name})
                set(path_${key} ${path})
            endif()
        else()
            set(owner_${key} ${name})
            set(path_${key} ${path})
        endif()
    endforeach()
endforeach()

# The headers of each library, by their paths.
get_cmake_property(variables VARIABLES)
foreach(variable IN LISTS variables)
    if(variable MATCHES "^owner_(.+)$")
        list(APPEND headers_${${variable}} ${path_${CMAKE_MATCH_1}})
    endif()
endforeach()

# Every Skelda header that Source includes, as owner:header (a header of a test folder or of a
# tool has no owner and is left out), into the variable named by Out.
function(included source out)
    set(found "")
    file(STRINGS ${source} includes REGEX "^#include \"[^\"]+\"")
    foreach(include IN LISTS includes)
        string(REGEX REPLACE "^#include \"([^\"]+)\".*" "\\1" header "${include}")
        get_filename_component(header ${header} NAME)
        string(MAKE_C_IDENTIFIER "${header}" key)
        if(DEFINED owner_${key})
            list(APPEND found "${owner_${key}}:${header}")
        endif()
    endforeach()
    set(${out} ${found} PARENT_SCOPE)
endfunction()

# Source as folder/file, for the messages.
function(shown source out)
    get_filename_component(folder ${source} DIRECTORY)
    get_filename_component(folder ${folder} NAME)
    get_filename_component(file ${source} NAME)
    set(${out} ${folder}/${file} PARENT_SCOPE)
endfunction()

# What a library brings with it: its own links and theirs, all of them (Of = deps) or only the
# public ones (Of = public).
function(closure name of out)
    set(seen "")
    set(todo ${${of}_${name}})
    while(todo)
        list(POP_FRONT todo next)
        if(NOT next IN_LIST seen)
            list(APPEND seen ${next})
            list(APPEND todo ${${of}_${next}})
        endif()
    endwhile()
    set(${out} ${seen} PARENT_SCOPE)
endfunction()

foreach(name IN LISTS targets)
    # What a file of the target may include: for a library, itself and its direct links; for a
    # program, its links and what they bring publicly.
    set(allowed ${name} ${deps_${name}})
    if(kind_${name} STREQUAL "program")
        foreach(dep IN LISTS deps_${name})
            closure(${dep} public brought)
            list(APPEND allowed ${brought})
        endforeach()
    endif()
    foreach(source IN LISTS files_${name})
        included(${source} found)
        foreach(entry IN LISTS found)
            string(REPLACE ":" ";" entry ${entry})
            list(GET entry 0 owner)
            list(GET entry 1 header)
            if(NOT owner IN_LIST allowed)
                shown(${source} where)
                string(APPEND problems "  ${where} includes ${header} of ${owner}, which ${name} doesn't link\n")
            endif()
        endforeach()
    endforeach()
    if(NOT kind_${name} STREQUAL "library")
        continue()
    endif()
    # A library's headers and its public links: each needs the other.
    set(needed "")
    foreach(path IN LISTS headers_${name})
        included(${path} found)
        foreach(entry IN LISTS found)
            string(REPLACE ":" ";" entry ${entry})
            list(GET entry 0 owner)
            list(GET entry 1 header)
            if(owner STREQUAL name)
                continue()
            endif()
            list(APPEND needed ${owner})
            if(NOT owner IN_LIST public_${name})
                shown(${path} where)
                string(APPEND problems
                       "  ${where} includes ${header} of ${owner}, which ${name} doesn't link publicly\n")
            endif()
        endforeach()
    endforeach()
    foreach(dep IN LISTS public_${name})
        if(NOT dep IN_LIST needed)
            string(APPEND problems "  ${name} links ${dep} publicly, but none of its headers includes one of ${dep}'s\n")
        endif()
    endforeach()
endforeach()

# The links among the libraries run one way: no library reaches itself through its links.
foreach(name IN LISTS targets)
    if(kind_${name} STREQUAL "library")
        closure(${name} deps reached)
        if(name IN_LIST reached)
            string(APPEND problems "  ${name} reaches itself through its links\n")
        endif()
    endif()
endforeach()

if(problems)
    message(FATAL_ERROR "The layering of the libraries is broken:\n${problems}")
endif()
list(LENGTH targets count)
message(STATUS "${count} libraries and programs: every include is of a linked library, every public link is "
               "needed by a header, and no link runs back")
