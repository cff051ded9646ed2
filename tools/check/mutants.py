#!/usr/bin/env python3
"""Mutation testing: puts one wrong piece of code at a time into src/ and sees whether a test notices.

  mutants.py [--seed N] [--count N]    tries a sample of that many mutants that compile
  mutants.py [--seed N] --list         prints the sample in its order and tries nothing
  mutants.py [--seed N] --report       prints the table of a run, also of one that goes on

The sample of a seed is the same as long as src/ is. It works on a copy of the sources below
build/mutants, which it builds there; the working tree is only read. The data must have been made
(make data). A run that was interrupted goes on where it stopped.

A mutant is tried on the unit tests of its room, those of its file first; then, if nothing has
failed, on the hosts that hold the answers of the two libraries; on the unit tests of the rooms that
use its room; on the other hosts. The first that fails ends it; so does a limit of processor time,
five times what the test takes without a mutant, which counts as noticed. What survives is a hole in
the tests or changes nothing. The latter, once somebody has read it, goes with its reason into
equivalent_mutants.txt beside this file.

Not tried: what only Windows compiles, tables (*.inc), static_asserts. Ends with 1 if there is a hole.
"""
import argparse
import collections
import hashlib
import json
import os
import random
import re
import resource
import shutil
import signal
import subprocess
import sys
import time
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
PLACE = ROOT / "build" / "mutants"
EQUIVALENT = ROOT / "tools" / "check" / "equivalent_mutants.txt"
NICE = int(os.environ.get("MUTANTS_NICE", "10"))
THIS_PLATFORM = ("__x86_64__",)
OTHER_PLATFORM = ("_WIN32", "_WIN64", "__i386__")
HOST_PROGRAMS = ("load_host load_heap_host replaced_host warning_host exports_host golden_host records_host answers_hash "
                 "threads_host hostile_processor_state hostile_misaligned_stack hostile_procedure "
                 "hostile_null_record hostile_page_end hostile_reload hostile_load_elsewhere "
                 "hostile_threads hostile_any_argument values_host values_linked_host "
                 "hostile_values_state hostile_values_threads").split()
# The finished libraries, with the tests of their answers; of their load and their manners.
LIBRARIES = {
    "zenithor": (
        r"\.host\.(Golden|AnswersHash)",
        r"\.host\.(Exports$|RecordLayouts|ThreadsDoNothing|Files|IndexFile|DataFile|BothFiles|NoHome|"
        r"OneLetter|Empty|Root|LoadFrees|Warnings)|hostile_(processor_state|misaligned_stack|procedure|null_record|"
        r"page_end|reload|load_elsewhere|threads|any_argument)$"),
    "zenithor_values": (
        r"\.host\.ValuesAreTheRecords$",
        r"\.host\.ValuesLinkedByName$|hostile_values_(state|threads)$"),
}


# What may be mutated ------------------------------------------------------------------------------

def spaces(match):
    return re.sub(r"[^\n]", " ", match.group())


def code_only(text):
    """The text with everything that is not mutated made blank, every place kept."""
    text = re.sub(r'//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|\'(?:\\.|[^\'\\\n])*\'', spaces, text, flags=re.S)
    lines, branches = [], []  # of the open #ifs: whether this branch is compiled here
    continued = False
    for line in text.split("\n"):
        directive = line.strip().startswith("#")
        if directive:
            word = line.strip()[1:].strip()
            if word.startswith("if"):
                here = any(name in word for name in THIS_PLATFORM)
                other = any(name in word for name in OTHER_PLATFORM)
                negated = word.startswith("ifndef") or "!defined" in word
                branches.append(None if here == other else negated != here)
            elif word.startswith(("else", "elif")) and branches[-1] is not None:
                branches[-1] = not branches[-1]
            elif word.startswith("endif"):
                branches.pop()
        dead = directive or continued or False in branches
        continued = (directive or continued) and line.endswith("\\")
        lines.append(" " * len(line) if dead else line)
    return re.sub(r"\bstatic_assert\s*\(.*?\)\s*;", spaces, "\n".join(lines), flags=re.S)


BINARY = {"+": "-", "-": "+", "*": "/", "/": "*", "%": "/", "<": "<= >", "<=": "< >", ">": ">= <", ">=": "> <",
          "==": "!=", "!=": "==", "&&": "||", "||": "&&", "+=": "-= =", "-=": "+= =", "*=": "/=", "/=": "*=",
          "<<": ">>", ">>": "<<", "&": "|", "|": "&", "^": "|"}
FUNCTIONS = (("std::sin", "std::cos"), ("std::cos", "std::sin"), ("std::floor", "std::ceil"),
             ("std::ceil", "std::floor"), ("std::asin", "std::acos"), ("std::acos", "std::asin"),
             ("std::fmin", "std::fmax"), ("std::fmax", "std::fmin"), ("std::min", "std::max"),
             ("std::max", "std::min"), ("std::trunc", "std::floor"), ("std::fabs", ""), ("IntegerPart", ""),
             ("ReduceAngle", "ReduceAngleSigned"), ("ReduceAngleSigned", "ReduceAngle"),
             ("ReduceAngle", ""), ("ReduceAngleSigned", ""))


def end_of_bracket(code, start):
    depth = 0
    for at in range(start, len(code)):
        depth += (code[at] in "([{") - (code[at] in ")]}")
        if depth == 0:
            return at
    return -1


def parts_of(code, start, end):
    """Begin and end of the parts between commas, without the space around them."""
    cuts, depth = [start - 1], 0
    for at in range(start, end):
        depth += (code[at] in "([{") - (code[at] in ")]}")
        if code[at] == "," and depth == 0:
            cuts.append(at)
    for a, b in zip(cuts, cuts[1:] + [end]):
        part = code[a + 1:b]
        yield a + 1 + len(part) - len(part.lstrip()), b - len(part) + len(part.rstrip())


def mutations(text):
    """(kind, begin, end, replacement) of every mutant of a file."""
    code = code_only(text)

    def each(pattern, flags=0):
        return re.finditer(pattern, code, flags)

    for match in each(r"(?<=\S )([-+*/%<>=!&|^]{1,2})(?=[ \n])"):
        before = code[:match.start()].rstrip()
        if match.group() in "<>" and before.endswith(("template", "operator")):
            continue
        for new in BINARY.get(match.group(), "").split():
            yield "operator", *match.span(), new

    for match in each(r"(?<![\w.])(0[xX][\da-fA-F']+|\d[\d']*(?:\.\d*)?(?:[eE][+-]?\d+)?)([uUlLfF]*)(?![\w.])"):
        digits, suffix = match.group(1).replace("'", ""), match.group(2)
        if re.fullmatch(r"\d+|0[xX].*", digits):
            value = int(digits, 0)
            yield "integer", *match.span(), f"{value + 1}{suffix}"
            if value > 0:
                yield "integer", *match.span(), f"{value - 1}{suffix}"
        elif float(digits) == 0.0:
            yield "number", *match.span(), "1e-3" + suffix
        else:
            yield "number", *match.span(), repr(float(digits) * (1.0 + 1e-6)) + suffix
            yield "number", *match.span(), repr(float(digits) * (1.0 + 1e-3)) + suffix
            yield "sign", *match.span(), f"(-{digits}{suffix})"

    for match in each(r"(?:(?<=[(,{=?:] )|(?<=[({])|(?<=return ))-(?=[\w(])"):
        yield "sign", *match.span(), ""
    for match in each(r"(?<=[( ])!(?=[\w(])"):
        yield "not", *match.span(), ""

    for match in each(r"^[ ]+([^\n]*;)[ ]*$", re.M):
        if code[:match.start()].rstrip()[-1:] in tuple(";{}:") and re.match(r"[\w.\[\]>()*:-]+ [-+*/|]?= |(static_cast<void>\()?[\w:.>-]+\(.*\);$|(\+\+|--)|continue;|break;",
                    match.group(1)):
            yield "statement", *match.span(1), ";"

    for match in each(r"\bif \("):
        end = end_of_bracket(code, match.end() - 1)
        condition = text[match.end():end]
        yield "condition", match.end(), end, f"false && ({condition})"
        yield "condition", match.end(), end, f"true || ({condition})"
    for match in each(r"(?<=\()([\w.>\[\]()-]+ [=!<>]=? [\w.>\[\]()-]+) (&&|\|\|)"):
        yield "condition", *match.span(1), "true" if match.group(2) == "&&" else "false"
    for match in each(r"(&&|\|\|) ([\w.>\[\]-]+ [=!<>]=? [\w.>\[\]-]+)(?=[);])"):
        yield "condition", *match.span(2), "true" if match.group(1) == "&&" else "false"

    for match in each(r"[\w>]\(|[\w ({,]\{"):
        start = match.end() - 1
        end = end_of_bracket(code, start)
        if end < 0 or ";" in code[start:end]:
            continue
        parts = list(parts_of(code, start + 1, end))
        if any(re.match(r"(const )?[\w:<>]+( const)?[ &*]+\(?&?\w+\)?(\[\w*\])*( = .*)?$", text[a:b]) for a, b in parts):
            continue  # a declaration
        for (a, b), (c, d) in zip(parts, parts[1:]):
            if a < b and c < d and text[a:b] != text[c:d]:
                yield "arguments", a, d, text[c:d] + text[b:c] + text[a:b]

    for name, new in FUNCTIONS:
        for match in each(r"(?<![\w:])" + name + r"(?=\()"):
            yield "function", *match.span(), new
    for match in each(r"\bthread_local "):
        yield "specifier", *match.span(), "static "
    for match in each(r"(?<!asm )\bvolatile "):
        yield "specifier", *match.span(), ""
    # An instruction of an asm block, or the one that stands alone.
    for match in re.finditer(r'^\s+("[a-z]\w+[^"\n]*\\n\\t"|"[a-z]\w+[^"\n]*")$', text, re.M):
        if "asm volatile(" in text[max(0, match.start() - 300):match.start()]:
            yield "instruction", *match.span(1), '""'
    for match in re.finditer(r'asm volatile\(("[a-z]+")', text):
        yield "instruction", *match.span(1), '"nop"'


def all_mutants():
    for path in sorted((ROOT / "src").glob("*/*.cpp")) + sorted((ROOT / "src").glob("*/*.h")):
        if path.name == "attach_windows.cpp":
            continue
        text = path.read_text(encoding="utf-8")
        for kind, begin, end, new in sorted(set(mutations(text))):
            if text[begin:end] == new:
                continue
            first, last = text.rfind("\n", 0, begin) + 1, text.find("\n", end)
            shown = f"{text[first:begin]}«{text[begin:end]} → {new}»{text[end:last]}"
            yield {"file": str(path.relative_to(ROOT)), "room": path.parent.name, "kind": kind,
                   "line": text.count("\n", 0, begin) + 1, "begin": begin, "end": end, "new": new,
                   "shown": " ".join(shown.split())}


def sample(seed):
    """All mutants in a random order of which every beginning is spread over the files: by the number
    of their lines to the power 3/4, and over all lines of a file before one comes again."""
    dice = random.Random(seed)
    files = collections.defaultdict(lambda: collections.defaultdict(list))
    for mutant in all_mutants():
        files[mutant["file"]][mutant["line"]].append(mutant)
    placed = []
    for lines in files.values():
        stacks, order = list(lines.values()), []
        for stack in stacks:
            dice.shuffle(stack)
            # Most exchanges of arguments do not compile: they mostly come last.
            stack.sort(key=lambda mutant: not (mutant["kind"] == "arguments" and dice.random() < 0.7))
        while stacks:
            dice.shuffle(stacks)
            order += [stack.pop() for stack in stacks]
            stacks = [stack for stack in stacks if stack]
        shift = dice.random()
        placed += [((k + shift) / len(lines) ** 0.75, mutant) for k, mutant in enumerate(order)]
    return [mutant for _, mutant in sorted(placed, key=lambda pair: (pair[0], pair[1]["file"], pair[1]["begin"]))]


# Trying one ---------------------------------------------------------------------------------------

def run(command, where, seconds):
    """(exit status, output); the status is None when a process of the command has used that many
    seconds of processor time, or the command ten times as long by the clock."""
    def limited():
        resource.setrlimit(resource.RLIMIT_AS, (8 << 30, 8 << 30))
        resource.setrlimit(resource.RLIMIT_CPU, (round(seconds), round(seconds) + 1))
        os.nice(NICE)
    process = subprocess.Popen(command, cwd=where, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                               start_new_session=True, preexec_fn=limited)
    try:
        output, _ = process.communicate(timeout=10 * seconds)
        out_of_time = process.returncode in (-signal.SIGXCPU, -signal.SIGKILL)
        return None if out_of_time else process.returncode, output.decode(errors="replace")
    except subprocess.TimeoutExpired:
        return None, ""
    finally:
        if process.poll() is None:
            os.killpg(process.pid, signal.SIGKILL)
            process.communicate()


def processor_seconds():
    used = resource.getrusage(resource.RUSAGE_CHILDREN)
    return used.ru_utime + used.ru_stime


class Bench:
    """The copy of the sources, and its tests without a mutant."""

    def __init__(self, jobs, limit):
        self.tree, self.limit, self.jobs = PLACE / "tree", limit, jobs
        self.build = self.tree / "build" / "linux"
        self.copy()
        (self.build / "CMakeCache.txt").unlink(missing_ok=True)  # what it remembers of an earlier tree
        generator = ["-G", "Ninja"] if shutil.which("ninja") else []
        self.must(["cmake", "-S", str(self.tree), "-B", str(self.build), *generator,
                   "-DZENITHOR_TOOLS=OFF"])
        uses = dict(re.findall(r"^zenithor_room\((\w+)([^)]*)\)", (self.tree / "CMakeLists.txt").read_text(), re.M))
        self.users = {room: [user for user in uses if re.search(rf"\b{room}\b", uses[user].split("EXCEPT")[0])]
                      for room in uses}
        self.programs = {room: self.build / "tests" / "unit" / f"unit_{room}" for room in uses}
        self.must(["cmake", "--build", str(self.build), f"-j{jobs}", "--target", *LIBRARIES, *HOST_PROGRAMS,
                   *(program.name for program in self.programs.values())])
        self.digest, self.seconds = {}, {}
        for room, program in self.programs.items():
            before = processor_seconds()
            self.must([str(program), "--gtest_brief=1"])
            self.digest[room], self.seconds[room] = self.digest_of(program), processor_seconds() - before
        self.suites = {room: self.suites_of(program) for room, program in self.programs.items()}
        for name, (answer_tests, manner_tests) in LIBRARIES.items():
            self.must(self.host_tests(answer_tests))
            self.must(self.host_tests(manner_tests))
            self.digest[name] = self.digest_of(self.library(name))

    def copy(self):
        listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard"], cwd=ROOT, check=True,
                                capture_output=True, text=True).stdout.splitlines()
        listed += [str(path.relative_to(ROOT)) for path in (ROOT / "out" / "data").rglob("*") if path.is_file()]
        for name in listed:
            here, there = ROOT / name, self.tree / name
            if not here.is_file():
                there.unlink(missing_ok=True)
            elif not there.is_file() or there.read_bytes() != here.read_bytes():
                there.parent.mkdir(parents=True, exist_ok=True)
                shutil.copy(here, there)
        for there in self.tree.rglob("*"):
            name = there.relative_to(self.tree)
            if there.is_file() and name.parts[0] not in ("build", "out") and str(name) not in listed:
                there.unlink()

    def must(self, command):
        status, output = run(command, self.tree, 3600)
        if status != 0:
            sys.exit(f"without a mutant: {' '.join(command)}\n{output[-3000:]}")

    def host_tests(self, chosen):
        return ["ctest", "--test-dir", str(self.build), "-R", chosen, "--no-tests=error", "--timeout", "300",
                "--stop-on-failure"]

    def suites_of(self, program):
        """The names of the tests of a unit program, by the file that they stand in."""
        listing = self.build / "tests.json"
        self.must([str(program), "--gtest_list_tests", f"--gtest_output=json:{listing}"])
        names = collections.defaultdict(list)
        for suite in json.loads(listing.read_text(encoding="utf-8"))["testsuites"]:
            for test in suite["testsuite"]:
                names[Path(test["file"]).stem].append(f"{suite['name']}.{test['name']}")
        return names

    def library(self, name):
        return self.tree / "out" / "linux" / f"lib{name}.so"

    @staticmethod
    def digest_of(program):
        return hashlib.sha256(program.read_bytes()).hexdigest()

    def compiles(self, *targets):
        status, _ = run(["cmake", "--build", str(self.build), f"-j{self.jobs}", "--target", *targets], self.tree,
                        self.limit)
        return status == 0

    def attempt(self, mutant):
        """What became of a mutant and which test noticed it."""
        path = self.tree / mutant["file"]
        text = path.read_text(encoding="utf-8")
        path.write_text(text[:mutant["begin"]] + mutant["new"] + text[mutant["end"]:], encoding="utf-8")
        try:
            return self.judge(mutant)
        finally:
            path.write_text(text, encoding="utf-8")

    def rooms_above(self, room):
        """The room and those that use it, nearest first."""
        found = [room]
        for below in found:
            found += [user for user in self.users[below] if user not in found]
        return found

    def judge(self, mutant):
        own, *above = self.rooms_above(mutant["room"])
        outcome, by = self.unit_tests(own, f"{own}_{Path(mutant['file']).stem}_test")
        if outcome in ("not compiled", "unit tests"):
            return outcome, by
        changed = outcome == "survived"
        changed_libraries = []
        for name, (answer_tests, _) in LIBRARIES.items():
            if not self.compiles(name):
                return "not compiled", ""
            if self.digest_of(self.library(name)) != self.digest[name]:
                changed_libraries.append(name)
                by = self.failed_host_test(answer_tests)
                if by:
                    return "host tests", by
        for room in above:
            outcome, by = self.unit_tests(room)
            if outcome in ("not compiled", "unit tests"):
                return outcome, by
            changed |= outcome == "survived"
        for name in changed_libraries:
            by = self.failed_host_test(LIBRARIES[name][1])
            if by:
                return "host tests", by
        return "survived" if changed or changed_libraries else "same code", ""

    def unit_tests(self, room, first=""):
        """What the unit tests of a room say, of which those of the file `first` run first."""
        program = self.programs[room]
        if not self.compiles(program.name):
            return "not compiled", ""
        if self.digest_of(program) == self.digest[room]:
            return "same code", ""
        near = self.suites[room].get(first, [])
        for chosen in ([f"--gtest_filter={':'.join(near)}"] if near else None, []):
            if chosen is None:
                continue
            status, output = run([str(program), "--gtest_brief=1", "--gtest_fail_fast", *chosen], program.parent,
                                 min(self.limit, 10 + 5 * self.seconds[room]))
            if status != 0:
                failed = re.search(r"^\[  FAILED  \] ([\w./]+)", output, re.M)
                how = failed.group(1) if failed else "time limit" if status is None else "crash"
                return "unit tests", f"{program.name} {how}"
        return "survived", ""

    def failed_host_test(self, chosen):
        status, output = run(self.host_tests(chosen), self.build, self.limit)
        if status == 0:
            return ""
        failed = re.search(r"^\s*\d+ - (\S+) \(", output, re.M)
        return failed.group(1) if failed else "time limit"


# The table ----------------------------------------------------------------------------------------

def equivalents():
    """The mutants that change nothing, as "file shown", with the reason."""
    reasons = {}
    if EQUIVALENT.exists():
        blocks = re.split(r"\n\s*\n", EQUIVALENT.read_text(encoding="utf-8"))
        for block in blocks:
            lines = [line for line in block.splitlines() if line and not line.startswith("#")]
            for line in lines[:-1]:
                reasons[line.strip()] = lines[-1].strip()
    return reasons


def results_of(seed):
    path = PLACE / f"seed_{seed}.jsonl"
    return [json.loads(line) for line in path.read_text(encoding="utf-8").splitlines()] if path.exists() else []


def report(seed):
    reasons, table, holes, stale = equivalents(), collections.defaultdict(collections.Counter), [], []
    for result in results_of(seed):
        outcome = result["outcome"]
        reason = reasons.get(f"{result['file']} {result['shown']}")
        if outcome == "survived":
            outcome = "hole" if reason is None else "changes nothing"
        elif outcome in ("unit tests", "host tests") and reason is not None:
            stale.append(result)
        if outcome == "same code":
            outcome = "changes nothing"
        if outcome == "hole":
            holes.append(result)
        table[result["room"]][outcome] += 1
        table["all"][outcome] += 1
    columns = ("unit tests", "host tests", "changes nothing", "hole")
    print(f"| room | mutants | {' | '.join(columns)} |\n|---|{'---|' * (1 + len(columns))}")
    for room in sorted(table, key=lambda name: (name == "all", name)):
        counts = [table[room][column] for column in columns]
        print(f"| {room} | {sum(counts)} | {' | '.join(map(str, counts))} |")
    print(f"\nseed {seed}; {table['all']['not compiled']} more did not compile")
    for title, found in (("Holes", holes), ("Listed as changing nothing, but noticed", stale)):
        if found:
            print(f"\n{title}:")
        for result in found:
            print(f"{result['file']}:{result['line']} {result['shown']}")
    return 1 if holes or stale else 0


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--count", type=int, default=300)
    parser.add_argument("--jobs", type=int, default=1, help="of a build")
    parser.add_argument("--limit", type=float, default=180, help="seconds of processor time for any one program that is run, a compiler too")
    parser.add_argument("--file", action="append", help="only mutants of files whose path ends so")
    parser.add_argument("--list", action="store_true")
    parser.add_argument("--report", action="store_true")
    options = parser.parse_args()
    if options.report:
        return report(options.seed)
    mutants = [mutant for mutant in sample(options.seed)
               if not options.file or mutant["file"].endswith(tuple(options.file))]
    if options.list:
        for mutant in mutants[:options.count]:
            print(f"{mutant['file']}:{mutant['line']} {mutant['kind']}: {mutant['shown']}")
        return 0

    signal.signal(signal.SIGTERM, lambda *_: sys.exit("stopped"))  # what runs is ended, the source restored
    PLACE.mkdir(parents=True, exist_ok=True)
    done = {(result["file"], result["shown"]): result["outcome"] for result in results_of(options.seed)}
    bench = Bench(options.jobs, options.limit)
    tried = 0
    with open(PLACE / f"seed_{options.seed}.jsonl", "a", encoding="utf-8") as out:
        for mutant in mutants:
            if tried == options.count:
                break
            key = (mutant["file"], mutant["shown"])
            if key not in done:
                began = time.time()
                outcome, by = bench.attempt(mutant)
                out.write(json.dumps({**mutant, "outcome": outcome, "by": by}, ensure_ascii=False) + "\n")
                out.flush()
                print(f"{outcome:13} {time.time() - began:5.1f} s  {mutant['file']}:{mutant['line']} "
                      f"{mutant['shown'][:150]}  {by}", flush=True)
                done[key] = outcome
            tried += done[key] != "not compiled"
    print()
    return report(options.seed)


if __name__ == "__main__":
    sys.exit(main())
