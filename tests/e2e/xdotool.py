"""Keys and clicks through the X server."""

import subprocess


class Xdotool:
    """One long-running xdotool process, because starting one takes longer than most commands."""

    END = "getdisplaygeometry"  # its output marks the end of the command before it

    def __init__(self):
        self._process = None
        self._end = subprocess.run(["xdotool", self.END], capture_output=True, text=True,
                                   check=True).stdout

    def do(self, *command):
        """Runs a command and returns its output; arguments must not contain spaces or quotes."""
        if self._process is None:
            self._process = subprocess.Popen(["xdotool", "-"], stdin=subprocess.PIPE,
                                             stdout=subprocess.PIPE,
                                             stderr=subprocess.DEVNULL, text=True)
        try:
            self._process.stdin.write(f"{' '.join(command)}\n{self.END}\n")
            self._process.stdin.flush()
        except BrokenPipeError:
            pass  # the process has ended; the loop below ends at once
        printed = ""
        for line in self._process.stdout:
            if line == self._end:
                return printed.strip()
            printed += line
        # xdotool ends if a window is closed while it is queried.
        self.close()
        return ""

    def close(self):
        """Ends the process; the next command starts another one."""
        if self._process is None:
            return
        try:
            self._process.stdin.close()
        except BrokenPipeError:
            pass  # the process ended before it read all input
        self._process.stdout.close()
        self._process.wait()
        self._process = None
