see %!* there
%
    N` G`  X  `  Y `   Z ` F  
    00M30                      end
   M
