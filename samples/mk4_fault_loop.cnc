FAULT TO FIND: pins from the bar, one after the other; the last line but one jumps back to the beginning.
The check reports "!Endless loop" on all lines from the target of the jump to the jump itself.
Why: G27 always jumps, it asks no question. A jump back to a line that has been run comes round for ever:
M30 is never reached, and no machining time can be told.
To learn: a program makes one part; for the next one press Start. For a number of equal cuts within
a part put them into a subroutine (G25, M17) and call it as often as needed. G27 is for jumping forward,
over lines that are not wanted this time.
Part: pin dia 8 x 20. Material: aluminium bar dia 10, pushed up to the stop after each pin
Tools: T1 side tool right; T2 parting tool 2 mm, right corner. Zero point: spindle axis, right face
Start point: dia 30, Z +30
%
    N` G`   X `    Z `  F`  H 
    00 92  3000   3000          Start point: dia 30, 30 mm off the face
    01M00                       Push the bar to the stop, clamp, Start
    02M06    00     00T 01      T1 side tool swings in
    03M03                       Spindle on, 2000 rpm
    04 00  1040    100          0.2 mm off the bar, 1 mm off the face
    05 84   840 - 2220  80  60  @  (2x)Longitudinal Cycle
    06 00   800    100          Down to size
    07 01   800 - 2220  50      Outside on size
    08 01  1040 - 2220  80      Off the bar
    09 00  3000   3000          Retreat for the tool change
    10M06 -  60    140T 02      T2 parting tool
    11 00  3000 - 2000          Along to the end of the pin
    12 00   900 - 2000          In to 0.5 mm off the pin
    13 01    00 - 2000  20      Part off
    14 00  3000 - 2000          Out
    15 00  3000   3000          Back to the start point
    16M05                       Spindle off
    17 27             L 01      And the next pin: back to the stop
    18M30                       End of program
   M
