"""What the checks of this tree have in common: each one lists offences, and fails if there are any."""
import os
import sys

REPOSITORY = os.path.normpath(os.path.join(os.path.dirname(os.path.abspath(__file__)), '..', '..'))


def run(offences, all_well):
    """Prints the offences in the folder of the command line, by default this repository, or all_well; the exit status."""
    found = list(offences(os.path.normpath(sys.argv[1]) if len(sys.argv) > 1 else REPOSITORY))
    print('\n'.join(found) if found else all_well)
    return 1 if found else 0
