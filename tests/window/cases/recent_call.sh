# "$2" follows the latest library call: the INT 0 after a number, W0 after a variable; the
# later SWGCB replaces the SWGCB2 registered before it.
start recent_call.zkl
W=$(window 'recent one')
click "$W" 76 31
click "$W" 76 71
W=$(window 'recent two')
click "$W" 76 31
click "$W" 76 71
finish
printf 'seecb 2 0 \nseecb 2 120 \nend \n' > want.txt
expect want.txt
