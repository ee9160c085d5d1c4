# For other scripts.

# entry DIRECTORY NAME prints a play list entry: the name from column 1, the directory from column 256, 512
# columns in all.
entry() { printf '%-255s%-257s' "$2" "$1/"; }
