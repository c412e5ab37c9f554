Host.Echo "before"
Host.Quit 7
Host.Echo "after"
