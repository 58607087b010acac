"""Figures and their goals, for the programs beside this one."""

import json


class Goals:
    """Prints each figure, and keeps it as limits.py reads it."""

    MARGIN = 1.5

    def __init__(self):
        self.runs = []

    def tell(self, name, value, goal, unit, limit=None):
        """The limit is the goal and half as much again, where a slow or busy machine needs no other."""
        print(f"{name}: {value:.1f} {unit} (goal: {goal:.3g})", flush=True)
        most = self.MARGIN if limit is None else limit / goal
        self.runs.append({"name": name, "ratio": value / goal, "limit": most})

    def write(self, path):
        if path:
            path.write_text(json.dumps({"benchmarks": self.runs}))
