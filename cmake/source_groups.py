"""Groups source files that can be compiled together: in no group do two files define the same local name.
Compiling a group parses common headers once.

Usage: source_groups.py SIZE FILE...

Prints the number of each file's group, a line each, in the order of the files.
"""

import pathlib
import re
import sys


NO_NAMES = {"return", "TEST", "TEST_F", "TEST_P"}


def local_names(file):
    """Returns the names that the file may define locally, with the namespace around them and what they
    stand for: that of an alias, or else the file itself."""
    text = re.sub(r"\n {2,}[^\n]*", "", file.read_text())  # ignore nested code
    around = max(re.findall(r"^namespace ([\w:]+) \{$", text, re.MULTILINE), key=len, default="")
    inside = "".join(re.findall(r"^namespace \{$(.*?)^\}  // namespace$", text, re.DOTALL | re.MULTILINE))
    inside += "\n".join(re.findall(r"^namespace \{\n(.*)\n\}$", text, re.MULTILINE))
    names = {(around, name): file
             for name in re.findall(r"(?<![\w:.])([A-Za-z_]\w*)(?:\(|\{| \{|;| =| :)", inside)
             if name not in NO_NAMES}
    names.update({(around, name): value
                  for name, value in re.findall(r"^(?:using|namespace) (\w+) = (.*);$", text, re.MULTILINE)})
    return names


def stays_alone(file):
    """Returns whether the file makes the names of an enumeration visible to all that follow it."""
    return re.search(r"^using enum ", file.read_text(), re.MULTILINE) is not None


def groups_of(files, size):
    """Returns lists of at most `size` files each."""
    groups = []
    alone = [file for file in files if stays_alone(file)]
    for file in files:
        if file in alone:
            continue
        names = local_names(file)
        for group, taken in groups:
            if len(group) < size and all(taken.get(name, value) == value for name, value in names.items()):
                group.append(file)
                taken |= names
                break
        else:
            groups.append(([file], names))
    return [group for group, _ in groups] + [[file] for file in alone]


def main():
    files = [pathlib.Path(name) for name in sys.argv[2:]]
    numbers = {file: number for number, group in enumerate(groups_of(files, int(sys.argv[1]))) for file in group}
    for file in files:
        print(numbers[file])


if __name__ == "__main__":
    main()
