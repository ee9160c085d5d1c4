# For quorvale.sh: lint_code checks format and code.

lint_code() {
  say "Checking the format"
  git ls-files '*.h' '*.cpp' | xargs clang-format --dry-run -Werror
  say "Checking the scripts"
  git ls-files '*.py' | xargs pyflakes3
  local parts=(src tests bench assets scripts)
  local of_windows=(src/platform/win32 tests/win32 scripts/metafiles bench/portable/windows_parts.cpp)
  say "Checking the code"
  configure debug -B build/lint
  git ls-files "${parts[@]/%//*.cpp}" "${of_windows[@]/#/:!}" | scripts/lint_batches.py build/lint
  configure sanitize -B build/lint-fuzz
  git ls-files 'fuzz/*.cpp' | scripts/lint_batches.py build/lint-fuzz
  say "Checking the Windows program's code"
  configure windows-64 -B build/lint-windows -D QUORVALE_JOIN=OFF
  # The linter's compiler has to be told where the headers of the other one are.
  local library
  library=$(dirname "$(x86_64-w64-mingw32-g++-posix -print-libgcc-file-name)")/include/c++
  git ls-files "${of_windows[@]}" | grep '\.cpp$' |
    scripts/lint_batches.py build/lint-windows --target=x86_64-w64-mingw32 -isystem"$library" \
      -isystem"$library"/x86_64-w64-mingw32
}
