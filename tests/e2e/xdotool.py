"""Keys and clicks through the X server."""

import subprocess


class Xdotool:
    """One xdotool process that takes command after command; starting it costs more than most do."""

    END = "getdisplaygeometry"  # its output marks the end of the command before it

    def __init__(self):
        self._process = None
        self._end = subprocess.run(["xdotool", self.END], capture_output=True, text=True,
                                   check=True).stdout

    def do(self, *command):
        """Runs a command of plain words and returns what it prints."""
        if self._process is None:
            self._process = subprocess.Popen(["xdotool", "-"], stdin=subprocess.PIPE,
                                             stdout=subprocess.PIPE,
                                             stderr=subprocess.DEVNULL, text=True)
        try:
            self._process.stdin.write(f"{' '.join(command)}\n{self.END}\n")
            self._process.stdin.flush()
        except BrokenPipeError:
            pass  # the loop below ends at once then
        printed = ""
        for line in self._process.stdout:
            if line == self._end:
                return printed.strip()
            printed += line
        # A window that vanishes while it is asked for ends xdotool.
        self.close()
        return ""

    def close(self):
        """Ends the process; the next command starts another one."""
        if self._process is None:
            return
        try:
            self._process.stdin.close()
        except BrokenPipeError:
            pass  # it ended before it took all that was written
        self._process.stdout.close()
        self._process.wait()
        self._process = None
