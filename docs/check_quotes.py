"""Checks that each piece of C++ in a page is in the samples, word for word: check_quotes.py PAGE SAMPLE..."""

import re
import sys
import textwrap


page = open(sys.argv[1], encoding="utf-8").read()
samples = [open(path, encoding="utf-8").read() for path in sys.argv[2:]]
quotes = re.findall(r"```(?:cpp|cmake)\n(.*?)```", page, re.S)
texts = samples + [textwrap.dedent(re.sub(r"^(?=\S).*$", "", text, flags=re.M)) for text in samples]
wrong = [quote for quote in quotes if not any(quote in text for text in texts)]
print(*("not in the samples:\n" + quote for quote in wrong), f"{len(quotes)} quotes, {len(wrong)} wrong", sep="\n")
sys.exit(1 if wrong or not quotes else 0)
