LIBRARY ieee;
USE ieee.std_logic_1164.ALL;
USE ieee.numeric_std.ALL;

ENTITY alu IS
	PORT (
		clk : IN std_logic;
		rst : IN std_logic
	);
END ENTITY alu;

ARCHITECTURE rtl OF alu IS
BEGIN
reg : PROCESS (clk, rst)
BEGIN
	IF rst = '1' THEN
		
	ELSIF rising_edge(clk) THEN
		
	END IF;
END PROCESS reg;

END ARCHITECTURE rtl;
