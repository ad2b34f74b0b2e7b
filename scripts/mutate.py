#!/usr/bin/env python3
"""Seeded one-line mutations of the core, all compiled into one build and switched on one at a
time by the environment variable RUVO_MUTANT; the unit tests that reach a mutated line are run
against it, and the mutants no test catches are listed.

Kinds: a comparison flipped (< <=, > >=, == !=, && ||), an integer constant changed by one, a
condition negated, a statement removed. A mutated line keeps the original beside the mutant:
    if ((ruvo_mutant_on(17) ? static_cast<bool>(a <= b) : static_cast<bool>(a < b))) {
so that with RUVO_MUTANT unset every line behaves as written.
"""
import argparse
import os
import hashlib
import re
import shutil
import subprocess
import sys
import time
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent
CORE_FOLDERS = ["engine", "lang", "commands", "docs", "aids", "tools", "dialogs", "settings", "print"]

SWITCH_HEADER = r"""// Switches for the mutation run: which mutant is on, and which mutated lines were reached.
#pragma once
#include <cstdio>
#include <cstdlib>
namespace ruvo_mutation {
constexpr int MaxMutants = 100000;
struct Trace {
    bool reached[MaxMutants] = {};
    const char* file = std::getenv("RUVO_MUTANT_TRACE");
    ~Trace() {
        if (file == nullptr) return;
        if (std::FILE* out = std::fopen(file, "a")) {
            for (int i = 0; i < MaxMutants; ++i)
                if (reached[i]) std::fprintf(out, "%d\n", i);
            std::fclose(out);
        }
    }
};
inline Trace& TheTrace() {
    static Trace trace;
    return trace;
}
inline int ActiveMutant() {
    static const int id = [] {
        const char* value = std::getenv("RUVO_MUTANT");
        return value != nullptr ? std::atoi(value) : -1;
    }();
    return id;
}
} // namespace ruvo_mutation
inline bool ruvo_mutant_on(int id) {
    ruvo_mutation::Trace& trace = ruvo_mutation::TheTrace();
    if (trace.file != nullptr && id >= 0 && id < ruvo_mutation::MaxMutants) trace.reached[id] = true;
    return id == ruvo_mutation::ActiveMutant();
}
"""

COMPARISON_FLIPS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "==",
                    "&&": "||", "||": "&&"}
OPERATOR = re.compile(r"(?<=\s)(<=|>=|==|!=|&&|\|\||<|>)(?=\s)")
NUMBER = re.compile(r"(?<![\w.'])(\d+)(?![\w.'])")
STATEMENT = re.compile(
    r"^(\s*)((?:\+\+|--)[A-Za-z_][\w.:\->\[\]]*|[A-Za-z_][\w.:\->\[\]]*\s*(?:\(.*\)|(?:=|\+=|-=|\|=|&=|\+\+|--)\s*.*)"
    r"|break|continue)\s*;\s*$")
SKIP_STATEMENT = re.compile(r"^\s*(return|case|default|goto|delete|throw|using|typedef)\b")


def strip_strings(text):
    """The line with string and character literals blanked, so nothing inside them mutates."""
    return re.sub(r'"(?:\\.|[^"\\])*"|\'(?:\\.|[^\'\\])*\'', lambda m: "~" * len(m.group(0)), text)


def balanced(text):
    depth = 0
    for ch in text:
        if ch in "([{":
            depth += 1
        elif ch in ")]}":
            depth -= 1
            if depth < 0:
                return False
    return depth == 0


def closing_paren(text, open_index):
    depth = 0
    for i in range(open_index, len(text)):
        if text[i] == "(":
            depth += 1
        elif text[i] == ")":
            depth -= 1
            if depth == 0:
                return i
    return -1


def assigned_value(plain):
    """Start and end of the value of a one-line assignment or initialisation, or (-1, -1)."""
    depth = 0
    for i, ch in enumerate(plain):
        if ch in "([{":
            depth += 1
        elif ch in ")]}":
            depth -= 1
        elif ch == "=" and depth == 0:
            before = plain[i - 1] if i > 0 else " "
            after = plain[i + 1] if i + 1 < len(plain) else " "
            if after == "=" or before in "<>!=*/%^|&":
                continue
            if "operator" in plain[:i]:
                return -1, -1
            end = plain.rstrip().rfind(";")
            return i + 1, end
    return -1, -1


def contexts(line):
    """Expressions of a line that can be duplicated whole: (start, end, kind) with kind 'cond'
    for if/while/for conditions and 'value' for returned or assigned values."""
    plain = strip_strings(line)
    found = []
    for m in re.finditer(r"\b(if|while)\s*\(", plain):
        open_index = m.end() - 1
        close = closing_paren(plain, open_index)
        if close > open_index + 1:
            found.append((open_index + 1, close, "cond"))
    m = re.search(r"\bfor\s*\(", plain)
    if m:
        close = closing_paren(plain, m.end() - 1)
        inner = plain[m.end():close] if close > 0 else ""
        parts = inner.split(";")
        if close > 0 and len(parts) == 3 and parts[1].strip():
            start = m.end() + len(parts[0]) + 1
            found.append((start, start + len(parts[1]), "cond"))
    if plain.strip().endswith(";") and balanced(plain):
        m = re.match(r"^(\s*return\s+)(.*);\s*$", plain)
        if m:
            start, end = m.end(1), m.end(1) + len(m.group(2))
        else:
            start, end = assigned_value(plain)
        if start >= 0 and not plain[start:end].lstrip().startswith(("{", "[")):
            found.append((start, end, "value"))
    return found


def candidates(path, lines):
    """Every mutation this file offers: (line index, kind, description, new line text)."""
    result = []
    in_block_comment = False
    for index, line in enumerate(lines):
        code = line
        if in_block_comment:
            if "*/" in line:
                in_block_comment = False
            continue
        if "/*" in line and "*/" not in line:
            in_block_comment = True
            continue
        if code.lstrip().startswith(("#", "//")) or "constexpr" in code or "static_assert" in code:
            continue
        comment = code.find("//")
        if comment >= 0:
            code = code[:comment]
        plain = strip_strings(code)
        for start, end, kind in contexts(code):
            original = code[start:end]
            plain_part = plain[start:end]
            variants = []
            for m in OPERATOR.finditer(plain_part):
                op = m.group(1)
                variants.append(("flip " + op, original[:m.start()] + COMPARISON_FLIPS[op] + original[m.end():]))
            for m in NUMBER.finditer(plain_part):
                value = int(m.group(1))
                new = value + 1 if (value + index) % 2 == 0 or value == 0 else value - 1
                variants.append(("constant %d->%d" % (value, new), original[:m.start()] + str(new) + original[m.end():]))
            if kind == "cond":
                variants.append(("negate", "!(" + original + ")"))
            for description, mutated in variants:
                result.append((index, description, (start, end, kind, mutated)))
        m = STATEMENT.match(code.rstrip())
        if m and not SKIP_STATEMENT.match(code) and balanced(plain) and "{" not in plain and "}" not in plain:
            result.append((index, "remove statement", None))
    return result


def apply(line, mutant_id, spec):
    comment = line.find("//")
    code, tail = (line, "") if comment < 0 else (line[:comment], line[comment:])
    if spec is None:
        indent = re.match(r"^\s*", code).group(0)
        return "%s{ if (!ruvo_mutant_on(%d)) { %s } }%s" % (indent, mutant_id, code.strip(), " " + tail if tail else "")
    start, end, kind, mutated = spec
    original = code[start:end]
    if kind == "cond":
        switch = "(ruvo_mutant_on(%d) ? static_cast<bool>(%s) : static_cast<bool>(%s))" % (mutant_id, mutated, original)
    else:
        switch = "(ruvo_mutant_on(%d) ? (%s) : (%s))" % (mutant_id, mutated, original)
    return code[:start] + switch + code[end:] + tail


def core_files(tree):
    files = []
    for folder in CORE_FOLDERS:
        files += sorted(p for p in (tree / "src" / folder).glob("*.cpp") if not p.name.endswith("_win32.cpp"))
    return files


def copy_tree(tree):
    if tree.exists():
        shutil.rmtree(tree)
    ignore = shutil.ignore_patterns(".git", "build")
    tree.mkdir(parents=True)
    for name in ["CMakeLists.txt", "src", "tests", "config", "cmake", "bench", "res"]:
        source = ROOT / name
        if source.is_dir():
            shutil.copytree(source, tree / name, ignore=ignore)
        elif source.exists():
            shutil.copy2(source, tree / name)


def build(tree, build_dir, jobs, log, target=None):
    header = tree / "mutant_switch.h"
    configure = ["cmake", "-S", str(tree), "-B", str(build_dir), "-DCMAKE_BUILD_TYPE=Debug",
                 "-DRUVO_SANITIZE=OFF", "-DRUVO_BENCHMARKS=OFF",
                 "-DCMAKE_CXX_FLAGS=-O1 -include " + str(header)]
    if subprocess.run(configure, stdout=log, stderr=subprocess.STDOUT).returncode != 0:
        return None
    command = ["cmake", "--build", str(build_dir), "-j", str(jobs)]
    if target:
        command += ["--target", target]
    done = subprocess.run(command + ["--", "-k"],
                          stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    log.write(done.stdout)
    return done


def failing_lines(output, build_dir):
    """(file, line) of the first compile error of each mutated file; later errors of a file
    often follow from the first."""
    first = {}
    for m in re.finditer(r"^(\S+?\.cpp):(\d+):\d+: error", output, re.M):
        path = Path(m.group(1))
        if not path.is_absolute():
            path = build_dir / path
        first.setdefault(str(path.resolve()), int(m.group(2)) - 1)
    return set(first.items())


def test_binaries(build_dir, tree):
    """The binaries of the tree's unit tests: a binary left in the build folder by an older tree
    numbers its mutants differently and would judge the wrong ones."""
    names = {p.stem for p in (tree / "tests" / "unit").glob("*_test.cpp")}
    return sorted(p for p in build_dir.glob("*_test") if p.name in names and os.access(p, os.X_OK))


def run_test(binary, env, timeout):
    try:
        done = subprocess.run([str(binary)], env=env, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL, timeout=timeout, cwd=binary.parent)
        return done.returncode == 0
    except subprocess.TimeoutExpired:
        return False


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--rate", type=float, default=0.075,
                        help="share of the mutable lines drawn (mutants that do not compile are dropped)")
    parser.add_argument("--only", action="append", default=[],
                        help="judge only the drawn mutants under this path prefix, e.g. src/aids")
    parser.add_argument("--seed", type=int, default=20261122, help="seed of the sample")
    parser.add_argument("--jobs", type=int, default=os.cpu_count() or 2)
    parser.add_argument("--work", default=str(ROOT / "build" / "mutate"))
    args = parser.parse_args()

    work = Path(args.work)
    tree = work / "tree"
    build_dir = work / "build"
    work.mkdir(parents=True, exist_ok=True)
    copy_tree(tree)
    (tree / "mutant_switch.h").write_text(SWITCH_HEADER)

    # Every candidate of the core, then a seeded sample with at most one mutant per line.
    pool = []
    for path in core_files(tree):
        lines = path.read_text().split("\n")
        for index, description, spec in candidates(path, lines):
            pool.append((str(path), index, description, spec))
    # Ordered by a seeded hash of the file, the line's text and the mutation, so that the draw
    # in one file stays the same when other files change.
    def draw_key(entry):
        path, index, description, _ = entry
        text = "%d|%s|%s|%s" % (args.seed, os.path.relpath(path, tree),
                                originals_text[path][index].strip(), description)
        return hashlib.sha1(text.encode()).hexdigest()
    originals_text = {str(p): p.read_text().split("\n") for p in core_files(tree)}
    pool.sort(key=draw_key)
    chosen, used = [], set()
    for entry in pool:
        key = (entry[0], entry[1])
        if key in used:
            continue
        used.add(key)
        chosen.append(entry)
    mutants = {}
    originals = {}
    drawn = [entry for entry in chosen if int(draw_key(entry), 16) < args.rate * 16 ** 40]
    for mutant_id, (path, index, description, spec) in enumerate(drawn, start=1):
        if args.only and not any(os.path.relpath(path, tree).startswith(p) for p in args.only):
            continue
        mutants[mutant_id] = {"path": path, "line": index, "kind": description, "spec": spec}

    def write_tree():
        by_file = {}
        for mutant_id, m in mutants.items():
            by_file.setdefault(m["path"], []).append(mutant_id)
        for path in core_files(tree):
            key = str(path)
            if key not in originals:
                originals[key] = path.read_text().split("\n")
            lines = list(originals[key])
            for mutant_id in by_file.get(key, []):
                m = mutants[mutant_id]
                lines[m["line"]] = apply(originals[key][m["line"]], mutant_id, m["spec"])
                m["text"] = lines[m["line"]].strip()
            path.write_text("\n".join(lines))

    log_path = work / "build.log"
    started = time.time()
    dropped_total = []
    with open(log_path, "w") as log:
        for attempt in range(40):
            write_tree()
            # The core alone until every mutant compiles; the tests link once at the end.
            done = build(tree, build_dir, args.jobs, log, "ruvo_core")
            if done is not None and done.returncode == 0:
                done = build(tree, build_dir, args.jobs, log)
            if done is None:
                sys.exit("mutate: cmake could not configure the mutated tree (see %s)" % log_path)
            if done.returncode == 0:
                break
            bad = failing_lines(done.stdout, build_dir)
            dropped = [i for i, m in mutants.items() if (str(Path(m["path"]).resolve()), m["line"]) in bad]
            if not dropped:
                sys.exit("mutate: the mutated tree does not build and no mutant is to blame (see %s)" % log_path)
            for i in dropped:
                del mutants[i]
            dropped_total += dropped
        else:
            sys.exit("mutate: the mutated tree still does not build (see %s)" % log_path)
    print("mutate: %d mutants compiled into one build in %.0f s (%d did not compile)"
          % (len(mutants), time.time() - started, len(dropped_total)))

    binaries = test_binaries(build_dir, tree)
    env = dict(os.environ)
    env.pop("RUVO_MUTANT", None)
    reached_by = {}
    baseline_times = {}
    for binary in binaries:
        trace = work / ("trace-" + binary.name)
        if trace.exists():
            trace.unlink()
        t0 = time.time()
        ok = run_test(binary, dict(env, RUVO_MUTANT_TRACE=str(trace)), 600)
        baseline_times[binary] = time.time() - t0
        if not ok:
            sys.exit("mutate: %s fails without any mutant; fix the tests first" % binary.name)
        if trace.exists():
            for text in trace.read_text().split():
                reached_by.setdefault(int(text), []).append(binary)

    def judge(mutant_id):
        for binary in reached_by.get(mutant_id, []):
            limit = max(10.0, 10 * baseline_times[binary])
            if not run_test(binary, dict(env, RUVO_MUTANT=str(mutant_id)), limit):
                return mutant_id, "caught", binary.name
        return mutant_id, ("survived" if mutant_id in reached_by else "not reached"), ""

    with ThreadPoolExecutor(max_workers=args.jobs) as pool_runner:
        results = list(pool_runner.map(judge, sorted(mutants)))

    caught = [r for r in results if r[1] == "caught"]
    survived = [r for r in results if r[1] != "caught"]
    report = work / "report.txt"
    with open(report, "w") as out:
        for mutant_id, verdict, by in results:
            m = mutants[mutant_id]
            original = originals[m["path"]][m["line"]].strip()
            out.write("%4d %-11s %s:%d %s | %s%s\n" % (mutant_id, verdict, os.path.relpath(m["path"], tree),
                                                       m["line"] + 1, m["kind"], original,
                                                       "  [" + by + "]" if by else ""))
    print("mutate: %d mutants, %d caught, %d survived (%d of them reached by no test); %.1f%% caught"
          % (len(results), len(caught), len(survived), sum(1 for r in survived if r[1] == "not reached"),
             100.0 * len(caught) / max(len(results), 1)))
    for mutant_id, verdict, _ in survived:
        m = mutants[mutant_id]
        print("  %4d %-11s %s:%d %s | %s" % (mutant_id, verdict, os.path.relpath(m["path"], tree), m["line"] + 1,
                                              m["kind"], originals[m["path"]][m["line"]].strip()))
    print("mutate: report in %s (%.0f s in all)" % (report, time.time() - started))


if __name__ == "__main__":
    main()
