#!/usr/bin/python3
"""Gives Doxygen a header with its comments as Doxygen's own, and with a text that describes several
declarations in a row repeated for each of them: as_doxygen.py HEADER"""

import re
import sys

ESCAPED = str.maketrans({c: "\\" + c for c in "\\@<>&$#%\""})


def is_declaration(line):
    return bool(re.match(r"\s*(\[\[nodiscard\]\] )?[\w:~<]", line)) and not re.match(
        r"\s*(public|private|protected|namespace|friend class|using|return)\b", line)


def main():
    comment, depth_of_text, open_declaration = [], False, False
    for line in open(sys.argv[1], encoding="utf-8").read().split("\n"):
        text = re.match(r"(\s*)//( ?.*)$", line)
        if text and "NOLINT" not in line:
            if not depth_of_text:
                comment, depth_of_text = [], True
            comment.append(text[1] + "///" + text[2].translate(ESCAPED))
            continue
        depth_of_text = False
        if not line.strip() or line.lstrip().startswith("#"):
            comment, open_declaration = [], False
        elif comment and not open_declaration and is_declaration(line):
            print("\n".join(comment))
        open_declaration = bool(line.strip()) and not re.search(r"[;{}:]\s*(//.*)?$", line)
        print(re.sub(r";\s*// (.*)$", lambda m: ";  ///< " + m[1].translate(ESCAPED), line))


main()
