# For other scripts.

# entry DIRECTORY NAME prints a play list entry: 512 columns, with the name at the first and the directory at
# column 256.
entry() { printf '%-255s%-257s' "$2" "$1/"; }
