#!/bin/sh
# Copy files
for f in *.txt; do
    if [ -f "$f" ]; then
        echo 'copying' "$f" # note
        cp "$f" /tmp/ || exit 1
    fi
done
