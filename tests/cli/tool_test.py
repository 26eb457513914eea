#!/usr/bin/env python3
"""The headless tool as its users meet it: results, messages, exit codes, files.

usage: tool_test.py MOISTAIR-CLI [unittest arguments]
"""

import json
import os
import pathlib
import resource
import shutil
import struct
import subprocess
import sys
import tempfile
import unittest
from xml.etree import ElementTree

sys.dont_write_bytecode = True
sys.path.insert(0, os.path.join(os.path.dirname(os.path.abspath(__file__)), "../data"))

from record_drawings import FOLDER, drawn, headof, same  # noqa: E402

TOOL = os.path.abspath(sys.argv.pop(1))
ENVIRONMENT = {k: v for k, v in os.environ.items() if k not in ("DISPLAY", "WAYLAND_DISPLAY", "XDG_RUNTIME_DIR")}
# Freed memory is not held back, or the sanitizer build would have no flat memory to measure.
ENVIRONMENT["ASAN_OPTIONS"] = ENVIRONMENT.get("ASAN_OPTIONS", "") + ":quarantine_size_mb=1"


class ToolTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name)

    def run_tool(self, *arguments, given=b"", **options):
        return subprocess.run([TOOL, *map(os.fsencode, arguments)], input=given, cwd=self.folder, env=ENVIRONMENT,
                              stdout=options.pop("stdout", subprocess.PIPE), stderr=subprocess.PIPE, timeout=600,
                              **options)

    def output(self, *arguments, given=b""):
        done = self.run_tool(*arguments, given=given)
        self.assertEqual((done.returncode, done.stderr), (0, b""), arguments)
        return done.stdout.decode()

    def assert_refused(self, done, code, words):
        """One clear line on standard error, and that exit code."""
        self.assertEqual(done.returncode, code, done.stderr)
        message = done.stderr.decode(errors="replace")
        self.assertRegex(message, r"\Amoistair-cli: [^\n\x00-\x1f]+\n\Z")
        self.assertIn(words, message)


class State(ToolTest):
    def test_limits_choose_the_finders_of_the_chart(self):
        pair = ["state", "rh=50.3032182", "v=13.6751968", "--format", "json"]
        free, charted = json.loads(self.output(*pair)), json.loads(self.output(*pair, "--limits", "0,120,0,0.030"))
        self.assertEqual((free["iterations"], round(free["db"], 5)), (12, 75.00071))
        self.assertEqual((charted["iterations"], round(charted["db"], 5)), (14, 75.00003))

    def test_check_tells_what_is_missed_and_what_there_is(self):
        kinds = ["db", "wb", "rh", "w", "h", "dp", "v", "pv"]
        rows = [
            ("missed", ["dp=27.65", "h=13.68"], 0, {"h": 0.0115411, "dp": 1.0711329}, [(43.1289323, 36.5554906)], None),
            ("two", ["db=40", "w=0.00205"], 0, {"db": 0, "w": 0}, [(40, 31.6419729), (40, 32.1027739)], None),
            ("one, not found", ["w=0.003", "v=12.5"], 1, {}, [(33.9643675, 30.9622758)], None),
            ("none", ["db=75", "wb=80"], 1, {}, [], "above saturation"),
            ("none, found all the same", ["db=2", "rh=30"], 0, {"db": 0, "rh": 2665.5617957}, [],
             "wet bulb would not be above 0"),
        ]
        for name, pair, code, residuals, answers, reason in rows:
            with self.subTest(name):
                done = self.run_tool("state", *pair, "--check", "--format", "json")
                self.assertEqual(done.returncode, code)
                state = json.loads(done.stdout)
                self.assertEqual(list(state), [*kinds, "iterations"] * (code == 0) + ["check"])
                check = state["check"]
                self.assertEqual(list(check), ["residuals", "answers", "reason"])
                self.assertEqual({kind: round(value, 7) for kind, value in check["residuals"].items()}, residuals)
                self.assertEqual([(round(a["db"], 7), round(a["wb"], 7)) for a in check["answers"]], answers)
                self.assertTrue(all(list(answer) == kinds for answer in check["answers"]))
                self.assertEqual(check["reason"], reason)
                header, row = self.run_tool("state", *pair, "--check", "--format", "csv").stdout.decode().splitlines()
                row = dict(zip(header.split(","), row.split(","), strict=True))
                self.assertEqual([float(row[name]) for name in ("residual1", "residual2") if row[name]],
                                 list(residuals.values()))
                self.assertEqual(row["answers"], str(len(answers)))
                text = self.run_tool("state", *pair, "--check").stdout.decode()
                self.assertEqual(text.count("Exact answer"), len(answers))
                self.assertIn(reason or "Exact answer", text)


class Marks(ToolTest):
    """States that miss a given value never leave the tool without a word."""
    MISSED = "this state has dew point 28.72 for the 27.65 given; exact: dry bulb 43.13, wet bulb 36.56"
    POINT = ["--point", "h=13.68,dp=27.65,id=A"]
    MIXTURE = ["--elevation", "5280", "--stream1", "db=94.5,wb=60.1,flow=250", "--stream2", "db=75,rh=45,flow=1000"]

    def commands(self, *options):
        return [["state", "h=13.68", "dp=27.65", *options], ["mix", *self.MIXTURE, *options],
                ["mix", "--stream1", "h=13.68,dp=27.65,flow=1", "--stream2", "db=43,wb=37,flow=1", *options],
                ["chart", "-o", "c.json", *self.POINT, *options], ["sheet", "-o", "s.svg", *self.POINT, *options]]

    def test_every_command_warns_or_fails(self):
        words = [self.MISSED, "the mixed stream has wet bulb 59.97 for 60.02", "stream 1: " + self.MISSED,
                 "Point A: " + self.MISSED, "Point A: " + self.MISSED]
        for name, option, code, begin in (("warned of", [], 0, "warning: "), ("an error", ["--strict"], 1, "")):
            for command, word in zip(self.commands(*option), words, strict=True):
                with self.subTest(name, command=command):
                    self.assert_refused(self.run_tool(*command), code, "moistair-cli: " + begin + word)
            self.assertEqual((self.folder / "c.json").exists(), code == 0)
            for path in self.folder.iterdir():
                path.unlink()

    def test_exact_states_miss_nothing(self):
        for command in self.commands("--exact", "--strict"):
            with self.subTest(command=command):
                self.output(*command)
        self.assertIn("43.1289323", self.output("state", "h=13.68", "dp=27.65", "--exact"))
        mixed = json.loads(self.output("mix", *self.MIXTURE, "--exact", "--format", "json"))["mixed"]
        self.assertAlmostEqual(mixed["wb"], 60.022, 3)

    def test_one_point_is_exact(self):
        done = self.run_tool("chart", "-o", "x.moistair", "--point", "h=13.68,dp=27.65,id=A,exact", *self.POINT[:1],
                             "h=13.68,dp=27.65,id=B")
        self.assert_refused(done, 0, "warning: Point B: " + self.MISSED)
        points = [e for e in json.loads((self.folder / "x.moistair").read_bytes())["entries"] if e["kind"] == "point"]
        self.assertEqual([(p.get("exact"), p["state"]["db"]) for p in points], [(True, 43.1289323), (None, 42.46875)])
        self.assert_refused(self.run_tool("chart", "--from", "x.moistair", "-o", "c.json"), 0, "Point B: ")
        self.output("sheet", "--from", "x.moistair", "-o", "s.svg", "--exact")

    def test_of_two_exact_states_the_nearest_or_none(self):
        two = ["state", "db=40", "w=0.00205", "--exact"]
        self.assert_refused(self.run_tool(*two), 0, "warning: 2 states have both values; taken is the one nearest to the "
                            "search: dry bulb 40.00, wet bulb 31.64; not taken: dry bulb 40.00, wet bulb 32.10")
        self.assert_refused(self.run_tool("state", "w=0.02", "v=13.4", "--exact"), 1,
                            "no state has both values: above saturation")
        self.assertIn("33.0000000", self.output("state", "db=33", "rh=90", "--exact"))
        self.assert_refused(self.run_tool("state", "db=33", "rh=90"), 1, "the search found no state; exact: dry bulb 33.00")


class Usage(ToolTest):
    def test_help_and_version_everywhere(self):
        for command in ([], ["state"], ["batch"], ["mix"], ["chart"]):
            self.assertIn("Usage: moistair-cli", self.output(*command, "--help"))
            self.assertRegex(self.output(*command, "--version"), r"\Amoistair-cli \d+\.\d+\.\d+\n\Z")

    def test_rubbish_is_refused_in_one_line(self):
        stream = "db=75,wb=62.5,flow=1000"
        rows = [
            ("nothing", 2, "subcommand", []),
            ("control characters", 2, "unknown command", ["a\nb\x1b[31m"]),
            ("one property", 2, "not 1", ["state", "db=75"]),
            ("the same twice", 2, "db is given twice", ["state", "db=75", "db=76"]),
            ("unknown property", 2, '"temp" is none of', ["state", "temp=75", "wb=62.5"]),
            ("no number", 2, "is no number", ["state", "db=nan", "wb=62.5"]),
            ("bytes that are no text", 2, "is no number", ["state", b"db=\xff\xfe", "wb=62.5"]),
            ("w with dp", 2, "fix no state", ["state", "w=0.01", "dp=50"]),
            ("unknown option", 2, "--frob", ["state", "db=75", "wb=62.5", "--frob"]),
            ("unknown option before one that is missing", 2, "unknown option --frob", ["chart", "--frob", "3"]),
            ("an option before its command", 2, "--inhg comes after the command: moistair-cli state --inhg",
             ["--inhg", "29", "state", "db=75", "wb=62.5"]),
            ("unknown short option", 2, "unknown option -x", ["-x"]),
            ("flows beyond all numbers", 1, "too large",
             ["mix", "--stream1", "db=75,wb=62.5,flow=1e308", "--stream2", "db=95,wb=75,flow=1.7e308"]),
            ("enthalpies beyond all numbers", 1, "too large",
             ["mix", "--stream1", "db=75,wb=62.5,flow=7e307", "--stream2", "db=95,wb=75,flow=7e307"]),
            ("two pressures", 2, "excludes", ["state", "db=75", "wb=62.5", "--inhg", "30", "--psi", "14"]),
            ("pressure below its range", 2, "5.906", ["state", "db=75", "wb=62.5", "--inhg", "-1"]),
            ("no pressure", 2, "is no number", ["state", "db=75", "wb=62.5", "--inhg", ""]),
            ("limits of no chart", 2, "limits must be", ["state", "db=75", "wb=62.5", "--limits", "0,15,0,0.03"]),
            ("no such state", 1, "rh would be above 100", ["state", "db=75", "wb=80"]),
            ("out of the limits of the pair", 1, "db must be", ["state", "db=1e300", "wb=80"]),
            ("jobs", 2, "jobs must be", ["batch", "--jobs", "0"]),
            ("no input file", 2, "No such file", ["batch", "nowhere.csv"]),
            ("input is a folder", 1, "directory", ["batch", "."]),
            ("a stream without flow", 2, "stream 2: the flow is missing",
             ["mix", "--stream1", stream, "--stream2", "db=75,wb=62.5"]),
            ("no flow in a stream", 2, "above 0", ["mix", "--stream1", stream, "--stream2", "db=75,wb=62.5,flow=0"]),
            ("no output", 2, "--output is required", ["chart"]),
            ("unknown ending", 2, "the ending must be", ["chart", "-o", "chart.gif"]),
            ("huge size", 2, "size must be", ["chart", "-o", "c.json", "--size", "1e9x1e9"]),
            ("too many pixels", 2, "million", ["chart", "-o", "c.png", "--size", "9000x9000", "--scale", "5"]),
            ("line out of limits", 1, "out of chart limits", ["chart", "-o", "c.json", "--rh", "101"]),
            ("point out of limits", 1, "out of chart limits",
             ["chart", "-o", "c.json", "--limits", "80,120,0,0.030", "--point", "db=75,wb=62.5"]),
            ("identification that is no text", 2, "UTF-8", ["chart", "-o", "c.json", "--point", b"db=75,wb=62,id=\xff"]),
            ("half a mixture", 2, "semicolon", ["chart", "-o", "c.json", "--mix", stream]),
            ("picture of no pixels", 2, "too small", ["chart", "-o", "c.png", "--size", "1x1", "--scale", "0.1"]),
            ("folder that is not there", 2, "No such file", ["chart", "-o", "no/where.svg"]),
            ("the same for data", 2, "No such file", ["chart", "-o", "no/where.json"]),
        ]
        for name, code, words, arguments in rows:
            with self.subTest(name):
                self.assert_refused(self.run_tool(*arguments), code, words)
        self.assertEqual(list(self.folder.iterdir()), [], "a refused command writes no file")


class Batch(ToolTest):
    @staticmethod
    def table(rows, line_end="\n"):
        lines = ["id,db,rh,note"]
        lines += [f'{i},{40 + i % 450 * 0.1:.1f},{10 + i % 800 * 0.1:.1f},"a, {i % 7}"' for i in range(rows)]
        return (line_end.join(lines) + line_end).encode()

    def test_jobs_keep_the_order_and_the_bytes(self):
        table = self.table(30000, "\r\n")
        (self.folder / "in.csv").write_bytes(table)
        one = self.output("batch", "in.csv")
        self.assertEqual(len(one.splitlines()), 30001)
        self.assertEqual(one.count("\r\n"), 30001)
        for jobs in ("2", "7"):
            self.output("batch", "in.csv", "-o", "out.csv", "--jobs", jobs)
            self.assertTrue((self.folder / "out.csv").read_bytes() == one.encode(), f"{jobs} jobs")

    def test_check_adds_its_columns_to_every_row(self):
        given = b"db,w,h,dp\n,,13.68,27.65\n40,0.00205,,\n75,x,,\n"
        rows = [row.split(",") for row in self.run_tool("batch", "--check", given=given).stdout.decode().splitlines()]
        self.assertEqual([row[12:] for row in rows],
                         [["status", "residual1", "residual2", "answers"], ["missed", "0.0115411", "1.0711329", "1"],
                          ["ok", "0.0000000", "0.0000000", "2"], ["w is no number", "", "", ""]])

    def test_tables_that_are_none(self):
        rows = [
            ("empty", b"", "is empty"),
            ("no header", b"75,62.5\n75,60\n", "must name the columns"),
            ("binary", bytes(range(256)) * 100, "zero bytes"),
            ("lines that end in carriage returns", b"db,wb\r75,62.5\r76,62\r", "carriage returns alone"),
            ("the same with quotes", b'db,"wb"\r75,62.5\r', "carriage returns alone"),
        ]
        for name, given, words in rows:
            with self.subTest(name):
                done = self.run_tool("batch", "-o", "out.csv", given=given)
                self.assert_refused(done, 2, words)
                self.assertFalse((self.folder / "out.csv").exists())

    def test_odd_tables_go_through(self):
        long = "x" * (1 << 20)
        rows = [
            ("header without a line end", b"db,wb", 0),
            ("a carriage return in a quoted name", b'"a\rb",db,wb\n,75,62.5\n', 1),
            ("byte order mark", b"\xef\xbb\xbfdb,wb\r\n75,62.5\r\n", 1),
            ("a line of 1 MB", f"note,db,wb\n{long},75,62.5\n,75,62.5\n".encode(), 2),
            ("a quoted field of 1 MB", f'note,db,wb\n"{long}\n{long}",75,62.5\n'.encode(), 1),
        ]
        for name, given, count in rows:
            with self.subTest(name):
                text = self.output("batch", given=given)
                self.assertTrue(given.split(b"\n")[0].rstrip(b"\r") in text.encode())
                self.assertEqual(text.count(",ok"), count)

    def test_memory_stays_flat(self):
        wide = "db,wb," + ",".join(map(str, range(20_000))) + "\n"
        tables = [self.table(20_000), self.table(200_000), wide.encode() + b"75,62\n" * 4000]
        peaks = []
        for table in tables:
            (self.folder / "in.csv").write_bytes(table)
            # Each in a process of its own: the peak of all children is what can be asked for.
            code = ("import resource, subprocess, sys; subprocess.run(sys.argv[1:], stderr=subprocess.DEVNULL);"
                    "print(resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss)")
            done = subprocess.run([sys.executable, "-c", code, TOOL, "batch", "in.csv", "-o", "/dev/null", "--jobs", "2"],
                                  cwd=self.folder, env=ENVIRONMENT, stdout=subprocess.PIPE, check=True)
            peaks.append(int(done.stdout))
        self.assertLess(peaks[1], peaks[0] + 8192, f"many rows: peaks of {peaks} KB")
        self.assertLess(peaks[2], peaks[0] + 32768, f"many columns and short rows: peaks of {peaks} KB")

    def test_delimiters(self):
        state = "75.0000000;62.5000000;50.3032182;0.0092932;28.1695563;55.2457239;13.6751968;0.4404820;ok"
        for given, delimiter in ((";", ";"), ("\t", "\t"), ("\\t", "\t"), ("|", "|")):
            with self.subTest(delimiter):
                table = delimiter.join(["note", "DB", "wb"]) + "\n" + delimiter.join(['"a,b;\t|"', "75", "62.5"]) + "\n"
                text = self.output("batch", "--delimiter", given, given=table.encode())
                self.assertEqual(text.splitlines()[1], table.splitlines()[1] + delimiter + state.replace(";", delimiter))
        for wrong in ("", ";;", '"', "5", ".", "a", "\n", "§"):
            self.assert_refused(self.run_tool("batch", "--delimiter", wrong, given=b"db,wb\n"), 2, "delimiter must be")

    def test_columns_of_the_result_that_are_there_already(self):
        done = self.run_tool("batch", given=b"db,wb,status,out_db\n75,62.5,,\n")
        self.assert_refused(done, 0, "warning: standard input has columns of the result already: status, out_db")
        self.assertEqual(done.stdout.count(b",ok"), 1)
        for options, names in (((), b""), (("--check",), b"warning: standard input has columns of the result already: answers")):
            done = self.run_tool("batch", *options, given=b"db,wb,answers\n75,62.5,\n")
            self.assertEqual(done.stderr.partition(b"moistair-cli: ")[2].strip(), names)

    def test_a_quote_left_open_is_told_with_its_row(self):
        rows = b"75,62.5,\n" * 3
        long = b"75,62.5,\n" * 1_000_000
        for name, behind, words in (("at the end", rows, "1 of 5 rows failed; a quote was left open in row 5, which has "
                                     "taken in 3 lines behind it"), ("too long", long, "row 5: more than 8 MB")):
            with self.subTest(name):
                done = self.run_tool("batch", "--jobs", "3", given=b"db,wb,note\n\n" + rows + b'75,62.5,"two\nlines"\n' +
                                     b'75,62.5,"5 in\n' + behind)
                self.assert_refused(done, 1, words)
                self.assertEqual(done.stdout.count(b",ok"), 4)

    def test_a_failure_leaves_the_old_table(self):
        (self.folder / "t.csv").write_bytes(b"db,wb\n75,62.5\n" + b'75,"' + b"x" * (9 << 20))
        (self.folder / "out.csv").write_bytes(b"old")
        self.assert_refused(self.run_tool("batch", "t.csv", "-o", "out.csv"), 1, "more than 8 MB")
        self.assertEqual((self.folder / "out.csv").read_bytes(), b"old")
        table = self.table(15_000)
        (self.folder / "t.csv").write_bytes(table)
        code = 'cat t.csv | "$0" batch -o t.csv'  # the tool cannot see that it reads what it writes
        subprocess.run(["bash", "-c", code, TOOL], cwd=self.folder, env=ENVIRONMENT, check=True, timeout=100)
        written = (self.folder / "t.csv").read_bytes()
        self.assertEqual((written.count(b"\n"), written.count(b",ok\n")), (15_001, 15_000))
        self.assertEqual(sorted(os.listdir(self.folder)), ["out.csv", "t.csv"])

    def test_output_that_cannot_be_written(self):
        (self.folder / "in.csv").write_bytes(self.table(30000))
        for jobs in ("1", "3"):
            with self.subTest(jobs=jobs):
                self.assert_refused(self.run_tool("batch", "in.csv", "-o", "/dev/full", "--jobs", jobs), 1, "No space left")
                reading, writing = os.pipe()
                os.close(reading)
                with os.fdopen(writing, "wb") as closed:
                    self.assert_refused(self.run_tool("batch", "in.csv", "--jobs", jobs, stdout=closed), 1, "closed by its reader")
        self.assert_refused(self.run_tool("batch", "in.csv", "-o", "in.csv"), 2, "at the same time")
        self.assertEqual((self.folder / "in.csv").read_bytes(), self.table(30000), "the input is still there")
        with open("/dev/full", "wb") as full:
            self.assert_refused(self.run_tool("state", "db=75", "wb=62.5", stdout=full), 1, "No space left")
            self.assert_refused(self.run_tool("--help", stdout=full), 1, "cannot be written")

        def small_files():
            resource.setrlimit(resource.RLIMIT_FSIZE, (10000, 10000))

        self.assert_refused(self.run_tool("batch", "in.csv", "-o", "out.csv", preexec_fn=small_files), 1, "too large")

    def test_closed_standard_files(self):
        done = self.run_tool("batch", preexec_fn=lambda: os.close(0))
        self.assert_refused(done, 1, "standard input cannot be read")
        (self.folder / "in.csv").write_bytes(self.table(10))
        done = self.run_tool("batch", "in.csv", preexec_fn=lambda: os.close(1))
        self.assert_refused(done, 1, "standard output cannot be written")


    def test_threads_and_memory_that_there_are_not(self):
        """Words of the system alone would say nothing."""
        if b"__asan_init" in pathlib.Path(TOOL).read_bytes():
            self.skipTest("the sanitizers take more room than the limit leaves")

        def no_threads():
            resource.setrlimit(resource.RLIMIT_AS, (1 << 28, 1 << 28))

        self.assert_refused(self.run_tool("batch", "--jobs", "256", given=self.table(10), preexec_fn=no_threads), 1, "fewer --jobs")
        many = b'{"kind":"line","property":"rh","value":"50","limits":[0,120,0,0.03]},' * 200_000
        many = b'{"format":1,"pressure":{"unit":"standard","entry":"","inhg":29.92126},"entries":[%s]}' % many[:-1]
        done = self.run_tool("chart", "--from", "-", "-o", "c.json", given=many, preexec_fn=no_threads)
        self.assert_refused(done, 1, "not enough memory")


class Mix(ToolTest):
    def mix(self, *streams):
        return self.run_tool("mix", "--stream1", streams[0], "--stream2", streams[1], "--format", "json")

    def test_a_mixture_too_dry_for_a_dew_point_has_none(self):
        driest = "db=120,wb=63.33,flow=1"
        self.assertIsNone(json.loads(self.mix(driest, driest).stdout)["mixed"]["dp"])

    def test_heads_are_spelled_right(self):
        table = self.output("mix", "--stream1", "db=75,wb=62.5,flow=1000", "--stream2", "db=95,wb=75,flow=500")
        self.assertEqual(table.splitlines()[0].split(), "Stream 1 Stream 2 Mixed stream".split())

    def test_the_first_stream_leaves_nothing_to_the_second(self):
        """No dry bulb is seen for the second one; over the range of the first the search would go on to a state."""
        done = self.mix("w=0.025,v=15.08,flow=1", "w=0.0299,v=15.306753,flow=1")
        self.assert_refused(done, 1, "stream 2: the search found no state")


class Chart(ToolTest):
    ADDITIONS = ["--h", "30", "--rh", "55", "--point", 'db=75,wb=62.5,id=A "é"',
                 "--mix", "db=75,wb=62.5,flow=1000;db=95,wb=75,flow=500"]

    def drawing(self, *arguments):
        self.output("chart", "-o", "c.json", *arguments)
        return json.loads((self.folder / "c.json").read_text(encoding="utf-8"))

    def test_drawings_are_those_recorded(self):
        for name in ("additions", "cold"):
            path = FOLDER / (name + ".txt")
            recorded = path.read_text(encoding="utf-8").splitlines()[len(headof(path)) + 1:]
            operations = drawn(TOOL, headof(path))
            self.assertEqual(len(operations), len(recorded), name)
            for i, pair in enumerate(zip(operations, recorded)):
                self.assertTrue(same(*pair), f"{name}, operation {i}: drawn and recorded {pair}")

    def test_the_toolkit_is_there_for_pictures_alone(self):
        """Linked into the tool by whatever library, it would cost every state its start-up."""
        alone = self.folder / "moistair-cli"
        shutil.copy(TOOL, alone)
        loaded = subprocess.run([alone], env={"LD_TRACE_LOADED_OBJECTS": "1"}, stdout=subprocess.PIPE, check=True).stdout
        self.assertIn(b"libc.so", loaded)
        self.assertNotIn(b"libQt", loaded)
        for arguments in (["state", "db=75", "wb=62.5"], ["chart", "-o", "c.json"]):
            self.assertEqual(subprocess.run([alone, *arguments], cwd=self.folder, stdout=subprocess.PIPE).returncode, 0)
        done = subprocess.run([alone, "chart", "-o", "c.svg"], cwd=self.folder, stderr=subprocess.PIPE)
        self.assert_refused(done, 1, "the part that paints cannot be loaded")
        self.assertFalse((self.folder / "c.svg").exists())
        done = subprocess.run([alone, "chart", "-o", "c.gif"], cwd=self.folder, stderr=subprocess.PIPE)
        self.assert_refused(done, 2, "the ending must be")

    def test_a_fifo_in_place_of_the_part_that_paints_is_not_waited_for(self):
        bin = self.folder / "bin"
        bin.mkdir()
        shutil.copy(TOOL, bin / "moistair-cli")
        place = next(pathlib.Path(TOOL).parent.parent.glob("lib*/moistair/moistair-painter.so"))
        fifo = self.folder / place.relative_to(pathlib.Path(TOOL).parent.parent)
        fifo.parent.mkdir(parents=True)
        os.mkfifo(fifo)
        done = subprocess.run([bin / "moistair-cli", "chart", "-o", "c.svg"], cwd=self.folder, stderr=subprocess.PIPE, timeout=60)
        self.assert_refused(done, 1, "is not a file")

    def test_files_of_every_kind(self):
        for ending, begins in ((".svg", b"<?xml"), (".pdf", b"%PDF"), (".png", b"\x89PNG"), (".BMP", b"BM")):
            with self.subTest(ending):
                self.output("chart", "-o", "c" + ending, "--size", "800x400", *self.ADDITIONS)
                self.assertTrue((self.folder / ("c" + ending)).read_bytes().startswith(begins))
        self.output("chart", "-o", "twice.png", "--size", "800x400", "--scale", "2")
        for name, size in (("c.png", (800, 400)), ("twice.png", (1600, 800))):
            self.assertEqual(struct.unpack(">II", (self.folder / name).read_bytes()[16:24]), size)

    def test_a_document_draws_what_its_options_drew(self):
        more = ["--point", "rh=40,v=16.9,id=", "--wb", "60.50", "--v", "16.5"]
        for options in ([], ["--type", "blank"], ["--limits", "50,100,0,0.020"], ["--psi", "14.7", "--rh", "20"],
                        ["--elevation", "5000", *self.ADDITIONS, *more],
                        ["--inhg", "29.9212612345678901", *self.ADDITIONS]):
            with self.subTest(options=options):
                self.output("chart", "-o", "x.moistair", *options)
                for size in ([], ["--size", "801x499"]):
                    self.assertEqual(self.drawing("--from", "x.moistair", *size), self.drawing(*size, *options))
                self.output("chart", "--from", "x.moistair", "-o", "y.moistair")
                self.assertEqual(*[(self.folder / name).read_bytes() for name in ("x.moistair", "y.moistair")])

    def test_a_document_is_gone_on_with(self):
        self.output("chart", "-o", "x.moistair", "--elevation", "5000", *self.ADDITIONS[:4])
        self.assertEqual(self.drawing("--from", "x.moistair", *self.ADDITIONS[4:]),
                         self.drawing("--elevation", "5000", *self.ADDITIONS))
        self.assertEqual(self.drawing("--from", "x.moistair", "--type", "blank"),
                         self.drawing("--elevation", "5000", "--type", "blank", *self.ADDITIONS[:4]))
        self.output("chart", "--from", "-", "-o", "c.json", given=(self.folder / "x.moistair").read_bytes())
        self.output("chart", "-o", "x.moistair", *self.ADDITIONS)
        narrow = ["--limits", "80,120,0,0.030"]
        done = self.run_tool("chart", "--from", "x.moistair", *narrow, "-o", "c.json")
        self.assertEqual((done.returncode, done.stderr.decode().splitlines()), (0, [
            'moistair-cli: x.moistair: Point A "é": The point as per input parameters is out of chart limits',
            "moistair-cli: x.moistair: Mixture: The stream1 point as per input parameters is out of chart limits"]))
        self.assertEqual(json.loads((self.folder / "c.json").read_bytes()), self.drawing(*narrow, *self.ADDITIONS[:4]))

    def test_documents_that_are_none(self):
        self.output("chart", "-o", "x.moistair")
        (self.folder / "cut.moistair").write_bytes((self.folder / "x.moistair").read_bytes()[:150])
        (self.folder / "empty.moistair").write_text(
            '{"format":1,"pressure":{"unit":"inhg","entry":"30","inhg":30},"entries":[]}')
        (self.folder / "nul.moistair").write_bytes((self.folder / "empty.moistair").read_bytes() + b"\n\n\n\0{")
        with open(self.folder / "large.moistair", "wb") as large:
            large.truncate((64 << 20) + 1)
        for name, code, words, arguments in [
                ("cut off", 1, "cut.moistair: line 6, column ", ["--from", "cut.moistair"]),
                ("not there", 2, "No such file", ["--from", "nowhere.moistair"]),
                ("too large", 1, "larger than 64 MB", ["--from", "large.moistair"]),
                ("a NUL byte and more", 1, "line 4, column 1: a NUL byte", ["--from", "nul.moistair"]),
                ("a pressure beside it", 2, "stands for its own pressure", ["--from", "x.moistair", "--psi", "14"]),
                ("nothing to add to", 1, "no chart to add it to", ["--from", "empty.moistair", "--rh", "50"]),
                ("a point outside", 1, "out of chart limits",
                 ["--from", "x.moistair", "--limits", "80,120,0,0.030", "--point", "db=75,wb=62.5"])]:
            with self.subTest(name):
                self.assert_refused(self.run_tool("chart", "-o", "c.json", *arguments), code, words)
        self.assert_refused(self.run_tool("chart", "--from", "x.moistair", "-o", "x.moistair"), 2, "at the same time")
        self.assertFalse((self.folder / "c.json").exists())

    def test_text_stays_text(self):
        words = ["Rh= 100", "h= 30", "WB= 60", 'A "é"', "St1", "Mix", "St2", "Atmos. pr=29.92126 In Hg"]
        self.output("chart", "-o", "c.svg", *self.ADDITIONS)
        words_drawn = [text.text.strip() for text in ElementTree.parse(self.folder / "c.svg").iter() if text.tag.endswith("}text")]
        self.assertEqual([word for word in words if word not in words_drawn], [])


class Sheet(ToolTest):
    CONTENT = ["--elevation", "5000", "--title", 'Rooms "é" <&>', "--date", "today", "--rh", "55",
               "--point", "db=75,wb=62.5,id=Office <é>", "--mix", "db=75,wb=62.5,flow=1000;db=95,wb=75,flow=500"]
    WORDS = ["Psychrometric chart", 'Rooms "é" <&>', "Office <é>", "Dew point, °F", "Grains of moisture per lb of dry air",
             "1 of 1", "today", "24.896 in Hg (12.228 psi), 5000 ft", "0 to 120 °F, 0.000 to 0.030 lb/lb"]
    SLANTED = ["55 % RH", "10 % relative humidity", "Enthalpy, Btu per lb of dry air"]  # cut up by pdftotext

    def missing(self, text, words=()):
        return [word for word in (*self.WORDS, *words) if word not in text]

    def test_texts_are_texts(self):
        self.output("sheet", "-o", "s.svg", *self.CONTENT)
        texts = [text.text for text in ElementTree.parse(self.folder / "s.svg").iter() if text.tag.endswith("}text")]
        self.assertEqual(self.missing(texts, self.SLANTED), [])
        again = (self.folder / "s.svg").read_bytes()
        self.output("sheet", "-o", "s.svg", *self.CONTENT)
        self.assertEqual((self.folder / "s.svg").read_bytes(), again)
        self.output("sheet", "-o", "s.pdf", *self.CONTENT)
        text = subprocess.run(["pdftotext", "s.pdf", "-"], cwd=self.folder, stdout=subprocess.PIPE, check=True).stdout.decode()
        self.assertEqual(self.missing(text), [])

    def test_gray_is_spelled_in_two_ways(self):
        sheets = {}
        for colors in ("gray", "grey", "color"):
            self.output("sheet", "-o", "s.svg", "--colors", colors)
            sheets[colors] = (self.folder / "s.svg").read_bytes()
        self.assertEqual(sheets["gray"], sheets["grey"])
        self.assertNotEqual(sheets["gray"], sheets["color"])

    def test_fonts_are_in_the_file_and_pages_as_asked_for(self):
        points = [option for number in range(60) for option in ("--point", f"db=75,rh={10 + number},id=P{number}")]
        self.output("sheet", "-o", "s.pdf", "--page", "a4", "--portrait", *points)
        fonts = subprocess.run(["pdffonts", "s.pdf"], cwd=self.folder, stdout=subprocess.PIPE, check=True).stdout.decode()
        rows = fonts.splitlines()[2:]
        self.assertGreaterEqual(len(rows), 2)
        for row in rows:
            self.assertRegex(row, r"DejaVu.* yes +no +yes ")  # embedded, and its letters known
        facts = subprocess.run(["pdfinfo", "s.pdf"], cwd=self.folder, stdout=subprocess.PIPE, check=True).stdout.decode()
        self.assertRegex(facts, r"Pages: +2\n")
        self.assertRegex(facts, r"Page size: +595\S* x 841\S* pts|Page size: +595\S* x 842\S* pts")
        self.output("sheet", "-o", "s.png", "--size", "800x500", "--scale", "2")
        self.assertEqual(struct.unpack(">II", (self.folder / "s.png").read_bytes()[16:24]), (1600, 1000))

    def test_refusals(self):
        for words, arguments in (("a page is letter", ["--page", "legal"]), ("from 3.75 to 30", ["--font-size", "50"]),
                                 ("scale is for", ["--scale", "2"])):
            with self.subTest(words):
                self.assert_refused(self.run_tool("sheet", "-o", "s.pdf", *arguments), 2, words)
        self.assertFalse((self.folder / "s.pdf").exists())


if __name__ == "__main__":
    unittest.main()
