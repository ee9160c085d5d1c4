# For quorvale.sh: lint_code checks format and code. Each file is checked as it is compiled, without precompiled
# headers, so that an include that is missing shows.

# tidy BUILD [ARGUMENTS] checks the files whose names come in.
tidy() {
  xargs -P "$(nproc)" -n 2 clang-tidy -p "$1" --quiet "${@:2}" 2> >(grep -v ' warnings\? generated\.$' >&2)
}

lint_code() {
  say "Checking the format"
  git ls-files '*.h' '*.cpp' | xargs clang-format --dry-run -Werror
  say "Checking the code"
  configure debug -B build/lint -D QUORVALE_PRECOMPILE=OFF
  git ls-files 'src/*.cpp' ':!src/platform/win32' | tidy build/lint
  say "Checking the Windows program's code"
  configure windows-64 -B build/lint-windows -D QUORVALE_PRECOMPILE=OFF
  # The linter's compiler has to be told where the headers of the other one are.
  local library
  library=$(dirname "$(x86_64-w64-mingw32-g++-posix -print-libgcc-file-name)")/include/c++
  git ls-files 'src/platform/win32/*.cpp' |
    tidy build/lint-windows --extra-arg-before=--driver-mode=g++ --extra-arg=--target=x86_64-w64-mingw32 \
      --extra-arg=-isystem"$library" --extra-arg=-isystem"$library"/x86_64-w64-mingw32
}
