"""The hands: keys and clicks through the X server."""

import subprocess


class Tool:
    """One xdotool that takes command after command, as starting it anew costs more than most do."""

    END = "getdisplaygeometry"  # what it prints tells that the command before it is done

    def __init__(self):
        self._process = None
        self._end = subprocess.run(["xdotool", self.END], capture_output=True, text=True,
                                   check=True).stdout

    def do(self, *command):
        """Does a command of plain words and returns what it prints."""
        if self._process is None:
            self._process = subprocess.Popen(["xdotool", "-"], stdin=subprocess.PIPE,
                                             stdout=subprocess.PIPE,
                                             stderr=subprocess.DEVNULL, text=True)
        try:
            self._process.stdin.write(f"{' '.join(command)}\n{self.END}\n")
            self._process.stdin.flush()
        except BrokenPipeError:
            pass  # as below, where there is nothing to read then
        printed = ""
        for line in self._process.stdout:
            if line == self._end:
                return printed.strip()
            printed += line
        # A window that vanishes while it is asked for ends the tool.
        self._process.wait()
        self._process = None
        return ""
