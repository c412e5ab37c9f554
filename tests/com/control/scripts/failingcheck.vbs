Host.Check 1 = 1, "one is one"
Host.Check 1 = 2, "one is two"
