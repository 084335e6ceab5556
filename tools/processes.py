"""The child processes of the tools: how they are started and ended, and what of them ends a tool."""

import os
import signal
import subprocess
import sys

END_LIMIT = 20  # seconds for a process to go; generous, for a loaded machine


def start_server(*command, stdout=subprocess.DEVNULL, **options):
    """A process that works for this one, unheard."""
    # setpriv ends it also when this process is killed and can't do it itself.
    return subprocess.Popen(["setpriv", "--pdeathsig", "TERM", *command], stdin=subprocess.DEVNULL, stdout=stdout,
                            stderr=subprocess.DEVNULL, **options)


def end(process):
    """Asks a child process to go, insists after a while, and closes its pipes."""
    with process:
        process.terminate()
        try:
            process.wait(END_LIMIT)
        except subprocess.TimeoutExpired:
            process.kill()


def run(command, environment):
    """Runs a command to its end; its exit code, of one that a signal ended as a shell reports it."""
    child = subprocess.Popen(command, env=environment)
    try:
        code = child.wait()
    except BaseException:
        end(child)
        raise
    return code if code >= 0 else 128 - code


def run_main(main):
    """Ends this process with what `main` gives, or tells why it failed."""
    # A request to end goes the way of an exception, past everything that has to be taken away.
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(128 + signal.SIGTERM))
    try:
        sys.exit(main())
    except KeyboardInterrupt:
        sys.exit(128 + signal.SIGINT)
    except (OSError, RuntimeError, subprocess.SubprocessError) as failure:
        sys.exit(f"{os.path.basename(sys.argv[0])}: {failure}")
